#include "support/MemoryFile.h"

#include "support/Require.h"

#include <sys/mman.h>
#include <unistd.h>

namespace Tesk::Fuzzing {

MemoryFile::MemoryFile()
    : descriptor(memfd_create("input", MFD_CLOEXEC))
{
    Require(descriptor >= 0, "the system makes files in memory");
}

MemoryFile::~MemoryFile()
{
    close(descriptor);
}

QString MemoryFile::Path() const
{
    return QStringLiteral("/proc/self/fd/%1").arg(descriptor);
}

void MemoryFile::Write(const std::uint8_t *data, std::size_t size)
{
    const bool isWritten = ftruncate(descriptor, 0) == 0 &&
                           pwrite(descriptor, data, size, 0) == static_cast<ssize_t>(size);
    Require(isWritten, "the input fits into memory");
}

} // namespace Tesk::Fuzzing
