#pragma once

#include <QByteArray>

namespace Tesk {

/// Puts right what chmcmd writes into a container's own records:
/// - Beyond some hundred members it names a later block of the directory as the first one, so that
///   a listing of the members leaves out those before it.
/// - It notes the time, so that no two builds are equal; that is set to zero.
/// `systemRecord` is the container's member `/#SYSTEM`.
void CorrectContainer(QByteArray &container, const QByteArray &systemRecord);

} // namespace Tesk
