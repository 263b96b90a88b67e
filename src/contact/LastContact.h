#pragma once

#include <QString>

namespace Tesk {

/// Subject and body of the contact form that was sent or printed last, as the order form shows
/// them; lines end with CR LF. One object for the whole program.
struct LastContact
{
    QString subject;
    QString body;
};

} // namespace Tesk
