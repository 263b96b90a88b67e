#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QtGlobal>

#include <chrono>

class QWebEngineProfile;
class QWebEngineView;

namespace Tesk {

/// Ends the engine's process when a script in it runs without end. All pages of a profile share
/// that process, so no other page could come and none could be left. The page that is seen is asked
/// once a second, and not while a dialog is open, behind which pages stand still. Questions are
/// counted and not the time between them: a machine that slept, or a program that was busy itself,
/// has asked none.
class PageWatch final : public QObject
{
    Q_OBJECT

public:
    /// How many questions in a row may stay without an answer. A process that has not answered yet
    /// is only beginning, and gets twice as many.
    struct Patience
    {
        std::chrono::milliseconds interval{1000};
        /// More than a cart of 32,767 lines takes on a slow machine.
        int usual = 60;
        /// When the program has asked for another page.
        int leaving = 15;
        /// While a page is held, which is while the engine makes sheets of it.
        int holding = 300;
    };

    /// The one watch over this profile's pages, made at the first call.
    static PageWatch &Of(QWebEngineProfile *profile);

    void Watch(QWebEngineView &view);
    void SetPatience(const Patience &newPatience);

    /// The program has asked for another page.
    void NoteRequest() { isLeaving = true; }
    /// A page has sent word by itself.
    void NoteLife();
    void BeginHold() { ++holds; }
    void EndHold() { --holds; }

Q_SIGNALS:
    /// The page that is seen has answered.
    void Answered();
    /// The process of this id ends when this returns.
    void ProcessEnds(qint64 process);

private:
    explicit PageWatch(QWebEngineProfile *profile);

    void Tick();
    void Ask(QWebEngineView &view);
    void BeginAnew();
    QWebEngineView *SeenView() const;
    int Limit() const;

    QList<QPointer<QWebEngineView>> views;
    Patience patience;
    QTimer timer;
    int unanswered = 0;
    int holds = 0;
    bool isLeaving = false;
    bool hasAnswered = false;
};

} // namespace Tesk
