#pragma once

#include <QLoggingCategory>

namespace Tesk {

/// "tesk.cart": reports of the cart's page that name nothing, pages that give no answer.
Q_DECLARE_LOGGING_CATEGORY(cartLog)

} // namespace Tesk
