#include "repository/repository_manager.h"

#include "repository/errors.h"
#include "repository/sqlite/file_check.h"

namespace quorel::repository {

using automation::ClassTable;
using automation::Object;
using automation::param;
using automation::Ref;

namespace {

/// One path for one file, however it was written.
std::filesystem::path identityOf(const std::u16string& fileName) {
    std::error_code failed;
    std::filesystem::path path = std::filesystem::weakly_canonical(sqlite::pathOf(fileName), failed);
    return failed ? sqlite::pathOf(fileName) : path;
}

}  // namespace

const ClassTable& RepositoryInformation::classTable() const {
    static const ClassTable table = ClassTable::of<RepositoryInformation>(u"RepositoryInformation")
                                        .readOnly(u"Repository", &RepositoryInformation::repositoryObject)
                                        .readOnly(u"UUIDGenerator", &RepositoryInformation::uuidGenerator)
                                        .readOnly(u"FileName", &RepositoryInformation::fileName);
    return table;
}

Object RepositoryInformation::uuidGenerator() {
    if (generator_)
        return generator_;
    if (!services_.createObject)
        throw automation::Error(automation::error_number::kCannotCreateObject);
    Object generator = services_.createObject(u"QuorelUtility.UUIDGenerator");
    generator.call(u"Create");
    generator.call(u"Init", u"Repository");
    generator_ = std::move(generator);
    return generator_;
}

const ClassTable& RepositoryManager::classTable() const {
    static const ClassTable table =
        ClassTable::of<RepositoryManager>(u"RepositoryManager")
            .method(u"Open", &RepositoryManager::open, {param(u"fileName")})
            .method(u"Create", &RepositoryManager::create, {param(u"fileName")})
            .method(u"SelectDialog", &RepositoryManager::selectDialog)
            .method(u"Close", &RepositoryManager::close, {param(u"fileName", u"")});
    return table;
}

Object RepositoryManager::keep(const std::u16string& fileName, Ref<Repository> repository) {
    const auto information = automation::make<RepositoryInformation>(std::move(repository), services_);
    opened_.push_back({identityOf(fileName), information});
    return information;
}

Object RepositoryManager::open(const std::u16string& fileName) {
    std::erase_if(opened_, [](const Opened& each) { return !each.information->repository().isOpen(); });
    const std::filesystem::path path = identityOf(fileName);
    for (const Opened& each : opened_)
        if (each.path == path)
            return each.information;
    const auto repository = automation::make<Repository>();
    repository->open(fileName);
    return keep(fileName, repository);
}

Object RepositoryManager::create(const std::u16string& fileName) {
    const auto repository = automation::make<Repository>();
    repository->create(fileName);
    return keep(fileName, repository);
}

Object RepositoryManager::selectDialog() {
    if (!services_.selectFile)
        throw failure(automation::error_number::kInvalidCall, u"There is no file dialog here");
    const std::optional<std::u16string> fileName = services_.selectFile();
    return fileName ? open(*fileName) : Object();
}

void RepositoryManager::close(const std::u16string& fileName) {
    const std::filesystem::path path = fileName.empty() ? std::filesystem::path() : identityOf(fileName);
    std::erase_if(opened_, [&](const Opened& each) {
        if (!fileName.empty() && each.path != path)
            return false;
        each.information->repository().close();
        return true;
    });
}

}  // namespace quorel::repository
