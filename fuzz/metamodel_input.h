#pragma once

#include <memory>
#include <string>

#include "input.h"
#include "platform/automation/error.h"
#include "repository/errors.h"
#include "repository/import/metamodel.h"
#include "repository/import/progress.h"
#include "repository/sqlite/sqlite_store.h"
#include "text_source.h"

namespace quorel::fuzz {

/// Any text is refused as malformed, or is a metamodel that a repository takes whole.
template <class Read>
void tryMetamodel(Read read, const std::uint8_t* data, std::size_t size) {
    using namespace repository;
    const OpenSource open = [&](const std::filesystem::path&) {
        return std::make_unique<TextSource>(std::string(data, data + size));
    };
    metamodel::Metamodel model;
    try {
        model = read({"input"}, open, [](const Progress&) {});
    } catch (const automation::Error& error) {
        promise(error.number() == error_number::kBadFileFormat, "what is refused is malformed");
        return;
    }
    const std::unique_ptr<Store> store = sqlite::createStore(u":memory:");
    Transaction transaction(*store);
    const metamodel::Outcome outcome = metamodel::write(*store, model);
    transaction.commit();
    const auto count = [&](Kind kind) { return store->countMetas({kind, std::nullopt, MetaId{}}); };
    promise(count(Kind::Node) == static_cast<std::int64_t>(model.classifiers.size()),
            "every classifier is a meta node");
    promise(count(Kind::Link) == outcome.metaLinks, "every meta link is there");
}

}  // namespace quorel::fuzz
