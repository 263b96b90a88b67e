#include "cart/pane/Log.h"

namespace Tesk {

Q_LOGGING_CATEGORY(cartLog, "tesk.cart")

} // namespace Tesk
