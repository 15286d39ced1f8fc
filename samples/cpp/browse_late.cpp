// Opens the six-pane browser on a repository file, bound late: everything by name at run time.
// sample_browse_late FILE

#include <cstdio>

#include "dispatch.h"

int wmain(int argc, wchar_t** argv) try {
    if (argc != 2)
        return 2;
    const Apartment apartment;
    const IDispatchPtr session = create(L"QuorelRepository.Session");
    const IDispatchPtr manager = object(session, L"RepositoryManager");
    const IDispatchPtr information = object(manager, L"Open", argv[1]);

    const IDispatchPtr browser = create(L"QuorelUtility.SixPane");
    call(browser, L"Create", L"Browser", session.GetInterfacePtr());
    putRef(browser, L"Repository", object(information, L"Repository"));
    call(browser, L"Init");
    call(browser, L"Populate");
    call(browser, L"PopUp");
    call(browser, L"Deinit");
    call(browser, L"Destroy");
    return 0;
} catch (const _com_error& error) {
    std::fwprintf(stderr, L"error 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
