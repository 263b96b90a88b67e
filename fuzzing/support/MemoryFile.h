#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>

namespace Tesk::Fuzzing {

/// A file without a folder, for what opens its input by a path.
class MemoryFile final
{
public:
    MemoryFile();
    ~MemoryFile();

    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

    /// The same for the life of the object.
    QString Path() const;
    /// Replaces the content.
    void Write(const std::uint8_t *data, std::size_t size);

private:
    int descriptor;
};

} // namespace Tesk::Fuzzing
