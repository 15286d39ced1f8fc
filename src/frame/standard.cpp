#include "frame/standard.h"

#include "platform/automation/calls.h"

namespace quorel::frame {

bool ExistsInCollection(const automation::Object& collection, const automation::Value& key) {
    try {
        static_cast<void>(collection.item(key));
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace quorel::frame
