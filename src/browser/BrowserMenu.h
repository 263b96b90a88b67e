#pragma once

class QPoint;
class QWebEngineView;

namespace Tesk {

/// Opens the context menu at a position of the view: what can be done with the selection or with
/// the field under the pointer, and no menu where nothing can.
void ShowBrowserMenu(QWebEngineView *view, const QPoint &position);

} // namespace Tesk
