#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace Tesk {

/// Keeps a page from holding the user with dialog after dialog. A dialog is one of a row when it
/// comes within a second of the end of the last one and the user has pressed no key and no button
/// of the mouse since; of a row, the first five open. Whatever comes after them is refused until
/// the page has been quiet for a second.
class DialogLimit final : public QObject
{
    Q_OBJECT

public:
    static constexpr int longestRow = 5;
    static constexpr int quietTime = 1000; // milliseconds

    DialogLimit();

    /// Whether the next dialog may open. One that may must be followed by Ended().
    bool Allows();
    /// The dialog was closed.
    void Ended();
    /// Whether the last answer of Allows() was the first refusal of its row.
    bool IsFirstRefusal() const { return isFirstRefusal; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QElapsedTimer sinceLast;
    int inRow = 0;
    bool isPressed = false;
    bool isFirstRefusal = false;
};

} // namespace Tesk
