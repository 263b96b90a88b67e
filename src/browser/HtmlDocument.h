#pragma once

#include <QList>
#include <QString>

namespace Tesk {

/// One change to an element of the loaded page, found by its id.
struct ElementChange
{
    enum class Property { InnerHtml, Visibility };

    QString id;
    Property property = Property::InnerHtml;
    /// The HTML, or "visible" or "hidden".
    QString value;

    bool operator==(const ElementChange &) const = default;
};

/// The loaded page as the page builders see it.
class HtmlDocument
{
public:
    virtual ~HtmlDocument() = default;

    /// Makes the changes in their order, all in one go. The page may take them a little later; an
    /// element that the page lacks ends the changes there and is reported on the terminal.
    virtual void Apply(const QList<ElementChange> &changes) = 0;
};

} // namespace Tesk
