// The reader of Ecore models.

#include "metamodel_input.h"
#include "repository/import/ecore_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quorel::fuzz::tryMetamodel(quorel::repository::metamodel::readEcore, data, size);
    return 0;
}
