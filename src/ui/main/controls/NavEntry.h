#pragma once

#include "ui/main/controls/DrawnButton.h"

namespace Tesk {

/// An entry of the left menu: a small arrow and a caption that wraps.
class NavEntry final : public DrawnButton
{
    Q_OBJECT

public:
    static constexpr int Width = 2990; ///< twips

    explicit NavEntry(QWidget *parent);

    void SetEntry(const QString &newCaption, const QString &newTag);
    QString Caption() const { return caption; }
    /// The category's ID, or the name of what else the entry opens.
    QString Tag() const { return tag; }

    /// The height of the wrapped caption in twips.
    int CaptionHeight() const;

    /// Marked and hovered entries look the same.
    void SetMarked(bool marked);
    void SetHovered(bool hovered);
    bool IsMarked() const override { return isMarked; }
    bool IsGrey() const { return isMarked || isHovered; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void DrawArrow(QPainter &painter) const;

    QString caption;
    QString tag;
    bool isMarked = false;
    bool isHovered = false;
};

} // namespace Tesk
