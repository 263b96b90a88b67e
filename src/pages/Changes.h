#pragma once

#include "browser/HtmlDocument.h"

namespace Tesk {

inline ElementChange HtmlChange(const QString &id, const QString &html)
{
    return {id, ElementChange::Property::InnerHtml, html};
}

inline ElementChange VisibilityChange(const QString &id, bool visible)
{
    return {id, ElementChange::Property::Visibility,
            visible ? QStringLiteral("visible") : QStringLiteral("hidden")};
}

} // namespace Tesk
