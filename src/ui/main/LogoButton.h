#pragma once

#include <QAbstractButton>

namespace Tesk {

/// The maker's word mark, which leads home when it is clicked.
class LogoButton final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LogoButton(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QFont WordFont() const;
};

} // namespace Tesk
