// The reader of moddle descriptors.

#include "metamodel_input.h"
#include "repository/import/moddle_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quorel::fuzz::tryMetamodel(quorel::repository::metamodel::readModdle, data, size);
    return 0;
}
