#pragma once

class QWebEnginePage;

namespace Tesk {

/// Refuses whatever the page's scripts ask for beyond showing a page - camera, place, storage,
/// files, windows, printing - each time with a line in "tesk.browser.gate".
void RefusePermissions(QWebEnginePage &page);

} // namespace Tesk
