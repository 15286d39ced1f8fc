// Sets the property Pages of the book "b" of a repository to 1, 2, 3 ..., each a change of its own, and tells
// each number once it is in the file: repository_writer FILE COUNT.

#include <cstdio>
#include <cstdlib>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "repository/repository.h"

int main(int count, char** arguments) {
    using namespace quorel;
    if (count != 3)
        return 2;
    try {
        const auto repository = automation::make<repository::Repository>();
        repository->open(automation::fromUtf8(arguments[1]));
        const automation::Object book =
            repository->metaNodes().item(u"Book").toObject().get(u"Extension", u"b").toObject();
        for (int number = 1; number <= std::atoi(arguments[2]); ++number) {
            book.put(u"Pages", number);
            std::printf("%d\n", number);
            std::fflush(stdout);
        }
    } catch (const automation::Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
