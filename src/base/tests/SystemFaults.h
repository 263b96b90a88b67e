#pragma once

#include <QByteArray>
#include <QString>

namespace Tesk {

/// While it lives, the system refuses changes to the files of a folder, or the program ends in the
/// middle of them. A program that links this library calls the system through it.
///
/// One at a time, for one thread. Calls are counted from 1: opening for writing, writing,
/// synchronising, changing rights or size, linking, renaming and removing, making folders.
class SystemFaults final
{
public:
    enum class Kind {
        DiskFull, ///< from that call on, nothing that needs room succeeds
        Refused,  ///< that one call fails, for lack of rights or as the disk is faulty
        Crash     ///< the program ends in front of the call, or in the middle of a write
    };

    /// The exit status of a program that has ended so.
    static constexpr int CrashStatus = 77;

    /// `hasUnnamedFiles`: whether the file system can make files without a name, which a program
    /// that ends cannot leave behind.
    SystemFaults(const QString &folder, Kind kind, int call, bool hasUnnamedFiles);
    ~SystemFaults();

    SystemFaults(const SystemFaults &) = delete;
    SystemFaults &operator=(const SystemFaults &) = delete;

    /// How many calls there were.
    int CallCount() const { return callCount; }

    /// Used by the replaced calls: whether this one is to fail; ends the program when it is due.
    enum class Verdict { GoOn, Fail, WriteHalfAndEnd };
    Verdict Judge(bool needsRoom, bool isWrite);
    bool Concerns(const char *path) const;
    bool Concerns(int file) const;
    bool HasUnnamedFiles() const { return hasUnnamedFiles; }
    Kind FaultKind() const { return kind; }

private:
    QByteArray folder;
    Kind kind;
    int faultyCall;
    bool hasUnnamedFiles;
    int callCount = 0;
};

} // namespace Tesk
