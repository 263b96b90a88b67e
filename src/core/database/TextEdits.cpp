#include "core/database/TextEdits.h"

#include <algorithm>
#include <utility>

namespace Tesk::Database {

QByteArray Apply(TextEdits edits, const QByteArray &text)
{
    std::stable_sort(edits.begin(), edits.end(), [](const TextEdit &left, const TextEdit &right) {
        const auto key = [](const TextEdit &edit) {
            return std::pair(edit.position, edit.length > 0);
        };
        return key(left) < key(right);
    });
    QByteArray result;
    qsizetype position = 0;
    for (const TextEdit &edit : edits) {
        result += QByteArrayView(text).sliced(position, edit.position - position);
        result += edit.text;
        position = edit.position + edit.length;
    }
    return result + QByteArrayView(text).sliced(position).toByteArray();
}

} // namespace Tesk::Database
