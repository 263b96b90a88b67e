#pragma once

#include <QWidget>

namespace Tesk {

/// A heading of the left menu: a red band with a white bold caption in one line.
class NavHeading final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Width = 2990; ///< twips

    explicit NavHeading(QWidget *parent);

    void SetCaption(const QString &caption);
    /// The band's height in twips: 250, or more for a font that needs it.
    int BandHeight() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QFont CaptionFont() const;
    /// The share of its usual width that the caption is drawn in.
    double Stretch() const;
    /// The caption, with an ellipsis where even the least stretch leaves it too wide.
    QString ShownCaption() const;
    void UpdateToolTip();

    QString caption;
};

} // namespace Tesk
