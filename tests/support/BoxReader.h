#pragma once

#include <QApplication>
#include <QList>
#include <QMessageBox>
#include <QStringList>
#include <QTest>
#include <QTimer>

namespace Tesk {

/// The texts of the message boxes that are open.
inline QStringList TextsOfOpenBoxes()
{
    QStringList texts;
    for (const QWidget *widget : QApplication::topLevelWidgets()) {
        const auto *box = qobject_cast<const QMessageBox *>(widget);
        if (box != nullptr && box->isVisible())
            texts << box->text();
    }
    return texts;
}

/// Reads the message boxes that open, which run an event loop of their own, and closes them with
/// their default button.
class BoxReader final : public QTimer
{
public:
    BoxReader()
    {
        connect(this, &QTimer::timeout, this, [this] {
            auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box == nullptr)
                return;
            seen << TextsOfOpenBoxes();
            texts << box->text();
            isPlain = isPlain && box->textFormat() == Qt::PlainText;
            QTest::keyClick(box, Qt::Key_Return);
        });
        start(10);
    }

    /// The text of each box closed.
    QStringList texts;
    /// The texts of all boxes open at a time, one list for each box closed.
    QList<QStringList> seen;
    bool isPlain = true;
};

} // namespace Tesk
