#include "browser/FailurePage.h"

namespace Tesk {
namespace {

const char *const html = R"html(<!DOCTYPE html>
<html><head><meta charset="utf-8"><title>Page not shown</title><style>
body { margin: 24px; color: #1f2326; background: #fff; overflow-wrap: anywhere; }
h1 { font-size: 20px; font-weight: 600; }
p { font-size: 13px; }
.address { color: #6b7278; }
</style></head><body>
<h1>This page cannot be shown</h1>
<p>%1</p>
<p class="address">%2</p>
<p>Please install the catalogue again.</p>
</body></html>)html";

} // namespace

QString FailurePage(const QString &address, const QString &reason)
{
    return QString::fromLatin1(html).arg(reason.toHtmlEscaped(), address.toHtmlEscaped());
}

} // namespace Tesk
