// Opens the six-pane browser on a repository file, bound early through the header of the type library.
// sample_browse_early FILE

#include <cstdio>

#include "dispatch.h"
#include "server/QuorelUtility.h"

using ISixPanePtr = _com_ptr_t<_com_IIID<ISixPane, &__uuidof(ISixPane)>>;

int wmain(int argc, wchar_t** argv) try {
    if (argc != 2)
        return 2;
    const Apartment apartment;
    const IDispatchPtr session = create(L"QuorelRepository.Session");
    const IDispatchPtr information = object(object(session, L"RepositoryManager"), L"Open", argv[1]);

    const ISixPanePtr browser(__uuidof(SixPane));
    _variant_t unused;
    _com_util::CheckError(browser->Create(_bstr_t(L"Browser"), session));
    _com_util::CheckError(browser->putref_Repository(object(information, L"Repository")));
    _com_util::CheckError(browser->Init(&unused));
    _com_util::CheckError(browser->Populate(&unused));
    _com_util::CheckError(browser->PopUp(VARIANT_TRUE));
    _com_util::CheckError(browser->Deinit(&unused));
    _com_util::CheckError(browser->Destroy());
    return 0;
} catch (const _com_error& error) {
    std::fwprintf(stderr, L"error 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
