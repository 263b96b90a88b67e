#pragma once

#include <QByteArray>
#include <QtGlobal>

/// What tests that damage a file byte by byte share.
namespace Sqlite2 {

/// Of this many bytes one is damaged. Under the sanitizers, which take their time, a share must do;
/// its step is prime, so that it meets fields of all kinds.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TESK_IS_SANITIZED
#endif
#endif
#if defined(TESK_IS_SANITIZED) || defined(__SANITIZE_ADDRESS__)
inline constexpr qsizetype DamageStep = 7;
#else
inline constexpr qsizetype damageStep = 1;
#endif

/// How many cases came to what.
class DamageCounts final
{
public:
    void Add(bool isRefused, bool isSame) { ++(isRefused ? refused : isSame ? same : changed); }
    int All() const { return refused + same + changed; }

    /// `step`: of how many bytes one was damaged.
    void Print(qsizetype step = DamageStep) const
    {
        qInfo("1 byte in %d, %d cases: %d refused, %d read as before, %d read with another text",
              int(step), All(), refused, same, changed);
    }

private:
    int refused = 0;
    int same = 0;
    int changed = 0;
};

/// The byte set to 0x00, to 0xff and with each of `flips` bits flipped, the offset telling which;
/// without what it is already.
inline QByteArray DamagesOf(const QByteArray &sound, qsizetype offset, int flips)
{
    QByteArray damages("\x00\xff", 2);
    for (qsizetype bit = offset; bit < offset + flips; ++bit)
        damages.append(static_cast<char>(sound[offset] ^ (1 << bit % 8)));
    return damages.replace(QByteArray(1, sound[offset]), QByteArray());
}

} // namespace Sqlite2
