#pragma once

#include <QMessageBox>

namespace Tesk {

/// A message box that shows its text as it stands: names and paths may hold what reads as markup.
class PlainMessageBox final : public QMessageBox
{
public:
    PlainMessageBox(Icon icon, const QString &title, const QString &text, StandardButtons buttons,
                    QWidget *owner = nullptr)
        : QMessageBox(icon, title, text, buttons, owner)
    {
        setTextFormat(Qt::PlainText);
    }
};

} // namespace Tesk
