#include "browser/BrowserMenu.h"

#include <QMenu>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineView>

#include <utility>

namespace Tesk {

void ShowBrowserMenu(QWebEngineView *view, const QPoint &position)
{
    const QWebEngineContextMenuRequest *request = view->lastContextMenuRequest();
    if (!request)
        return;
    using Request = QWebEngineContextMenuRequest;
    const std::pair<Request::EditFlag, QWebEnginePage::WebAction> entries[] = {
        {Request::CanCut, QWebEnginePage::Cut},
        {Request::CanCopy, QWebEnginePage::Copy},
        {Request::CanPaste, QWebEnginePage::Paste},
    };
    auto *menu = new QMenu(view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto &[condition, action] : entries) {
        if (request->editFlags().testFlag(condition))
            menu->addAction(view->pageAction(action));
    }
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(view->mapToGlobal(position));
}

} // namespace Tesk
