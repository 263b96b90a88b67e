#include "core/database/StatementRewriter.h"

#include "core/database/Comparisons.h"
#include "core/database/Conjunctions.h"
#include "core/database/ResultNames.h"
#include "core/database/RowOrder.h"
#include "core/database/SearchHints.h"
#include "core/database/SelectOutline.h"
#include "core/database/SqlTokens.h"
#include "core/database/TextEdits.h"

namespace Tesk::Database {

RewrittenStatement RewriteStatement(const QByteArray &sql, const TableSchema &schema)
{
    const std::optional<SqlTokens> tokens = FirstStatement(sql);
    const std::optional<SelectOutline> select = tokens ? OutlineOf(*tokens) : std::nullopt;
    if (!select)
        return {sql, sql, std::nullopt};

    TextEdits edits = ComparisonEdits(*select, *tokens, schema);
    TextEdits groups = ConjunctionEdits(*select, *tokens);
    // The brackets of both could begin at one place, and so many conditions need no hint.
    if (groups.empty())
        groups = SearchHintEdits(*select, *tokens);
    for (const TextEdits &more : {groups, RowOrderEdits(*select, *tokens, schema)})
        edits.insert(edits.end(), more.begin(), more.end());
    return {Apply(edits, sql), sql, ResultNames(*select, *tokens, sql, schema)};
}

} // namespace Tesk::Database
