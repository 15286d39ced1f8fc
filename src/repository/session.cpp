#include "repository/session.h"

namespace quorel::repository {

const automation::ClassTable& Session::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<Session>(u"Session")
            .readOnly(u"RepositoryManager", &Session::repositoryManager)
            .readOnly(u"ComponentManager", &Session::componentManager);
    return table;
}

}  // namespace quorel::repository
