#include "repository/import/xml_tree.h"

#include <expat.h>

#include <exception>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace quorel::repository {

namespace {

constexpr std::size_t kPiece = 64 * 1024;

struct FreeParser {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser>;

class XmlTreeBuilder {
  public:
    explicit XmlTreeBuilder(const std::string& name)
        : name_(name), parser_(XML_ParserCreateNS(nullptr, ' ')) {
        if (!parser_)
            throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(
            parser_.get(),
            [](void* self, const XML_Char* element, const XML_Char** attributes) {
                static_cast<XmlTreeBuilder*>(self)->guard(
                    [&](XmlTreeBuilder& builder) { builder.start(element, attributes); });
            },
            [](void* self, const XML_Char*) { static_cast<XmlTreeBuilder*>(self)->open_.pop_back(); });
        XML_SetStartDoctypeDeclHandler(
            parser_.get(), [](void* self, const XML_Char*, const XML_Char*, const XML_Char*, int) {
                static_cast<XmlTreeBuilder*>(self)->guard(
                    [](XmlTreeBuilder& builder) { builder.refuse("a document type is not accepted"); });
            });
    }

    void feed(const char* bytes, std::size_t size, bool isLast) {
        const bool parsed =
            XML_Parse(parser_.get(), bytes, static_cast<int>(size), isLast ? 1 : 0) == XML_STATUS_OK;
        if (failed_)
            std::rethrow_exception(failed_);
        if (!parsed)
            refuse(XML_ErrorString(XML_GetErrorCode(parser_.get())));
    }

    [[nodiscard]] XmlElement root() { return std::move(root_); }

  private:
    /// Nothing may be thrown through the parser, so it is kept until the parser has stopped.
    template <class Work>
    void guard(Work work) noexcept {
        try {
            work(*this);
        } catch (...) {
            failed_ = std::current_exception();
            XML_StopParser(parser_.get(), XML_FALSE);
        }
    }

    [[nodiscard]] std::uint64_t line() const { return XML_GetCurrentLineNumber(parser_.get()); }

    [[noreturn]] void refuse(std::string_view reason) const { throw malformed(name_, line(), reason); }

    void start(const XML_Char* name, const XML_Char** attributes) {
        if (open_.size() == kMostXmlLevels)
            refuse("elements stand within each other more than " + std::to_string(kMostXmlLevels) + " deep");
        // The parent's other children are complete, so none that is open moves.
        XmlElement& element = open_.empty() ? root_ : open_.back()->children.emplace_back();
        element.name = name;
        element.line = line();
        for (; *attributes != nullptr; attributes += 2)
            element.attributes.emplace(attributes[0], attributes[1]);
        open_.push_back(&element);
    }

    const std::string& name_;
    Parser parser_;
    XmlElement root_;
    std::vector<XmlElement*> open_;
    std::exception_ptr failed_;
};

}  // namespace

std::string_view XmlElement::attribute(std::string_view key) const {
    const auto found = attributes.find(key);
    return found == attributes.end() ? std::string_view() : found->second;
}

XmlElement readXml(ByteSource& source, const std::string& name,
                   const std::function<void(std::size_t)>& tellRead) {
    XmlTreeBuilder builder(name);
    std::vector<char> piece(kPiece);
    for (;;) {
        const std::size_t count = source.read(piece.data(), piece.size());
        tellRead(count);
        builder.feed(piece.data(), count, count == 0);
        if (count == 0)
            return builder.root();
    }
}

}  // namespace quorel::repository
