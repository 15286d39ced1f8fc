// Explores a repository file along its links, type by type, bound early.
// sample_htexplorer FILE

#include <cstdio>

#include "dispatch.h"
#include "server/QuorelUtility.h"

using IHTExplorerPtr = _com_ptr_t<_com_IIID<IHTExplorer, &__uuidof(IHTExplorer)>>;

int wmain(int argc, wchar_t** argv) try {
    if (argc != 2)
        return 2;
    const Apartment apartment;
    const IDispatchPtr session = create(L"QuorelRepository.Session");
    const IDispatchPtr information = object(object(session, L"RepositoryManager"), L"Open", argv[1]);

    const IHTExplorerPtr explorer(__uuidof(HTExplorer));
    _variant_t unused;
    _com_util::CheckError(explorer->Create(_bstr_t(L"Hierarchy"), session));
    _com_util::CheckError(explorer->putref_Repository(object(information, L"Repository")));
    _com_util::CheckError(explorer->Init(&unused));
    _com_util::CheckError(explorer->SetupTree());
    _com_util::CheckError(explorer->PopUp(VARIANT_TRUE));
    _com_util::CheckError(explorer->Deinit(&unused));
    _com_util::CheckError(explorer->Destroy());
    return 0;
} catch (const _com_error& error) {
    std::fwprintf(stderr, L"error 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
