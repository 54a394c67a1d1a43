// The triggers of a company on a server. Their functions are in PostgresFunctions.h.
#include "store/PostgresEngine.h"

namespace velmar::postgres {

namespace {

StoredStatement trigger(const QString& name, const QString& event, const QString& action) {
  return {name, QStringLiteral("CREATE TRIGGER %1 AFTER %2 EXECUTE FUNCTION %3()").arg(name, event, action)};
}

}  // namespace

// Inserted and deleted lines are handled together. Updated ones are not: a trigger with transition tables
// cannot be limited to columns, and most updates change only CANTRAMASA.
std::vector<StoredStatement> ServerEngine::companyTriggers() const {
  return {trigger("stocmag_line_insert",
                  "INSERT ON G_LDOCUM REFERENCING NEW TABLE AS moved FOR EACH STATEMENT", "stocmag_lines"),
          trigger("stocmag_line_delete",
                  "DELETE ON G_LDOCUM REFERENCING OLD TABLE AS moved FOR EACH STATEMENT", "stocmag_lines"),
          trigger("stocmag_line_update", "UPDATE OF DOCID, ARTID, CODMAG, CANT ON G_LDOCUM FOR EACH ROW",
                  "stocmag_line_changed"),
          trigger("stocmag_document", "INSERT OR DELETE OR UPDATE OF ID, TIPIE ON G_DOCUME FOR EACH ROW",
                  "stocmag_document_changed")};
}

}  // namespace velmar::postgres
