#pragma once

namespace Sqlite2 {

/// The order in which a file keeps the numbers of its page layer.
enum class ByteOrder { Little, Big };

} // namespace Sqlite2
