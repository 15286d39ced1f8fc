#include "repository/import/json_tree.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/json_text.h"
#include "repository/import/line_reader.h"

namespace quorel::repository {

namespace {

/// Goes through a text and counts its lines on the way.
class CountingIterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* place, std::uint64_t* line) : place_(place), line_(line) {}
    reference operator*() const { return *place_; }
    CountingIterator& operator++() {
        if (*place_++ == '\n')
            ++*line_;
        return *this;
    }
    CountingIterator operator++(int) {
        CountingIterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const CountingIterator& a, const CountingIterator& b) {
        return a.place_ == b.place_;
    }

  private:
    const char* place_;
    std::uint64_t* line_;
};

/// Makes the tree of what the parser meets.
class JsonTreeBuilder final : public nlohmann::json_sax<nlohmann::json> {
  public:
    JsonTreeBuilder(const std::string& name, const std::uint64_t& line) : name_(name), line_(line) {}

    [[nodiscard]] JsonNode root() { return std::move(root_); }

    bool null() override { return add(JsonNode::Kind::Null, {}); }
    bool boolean(bool value) override { return add(JsonNode::Kind::Boolean, value ? u"true" : u"false"); }
    bool number_integer(number_integer_t value) override {
        return add(JsonNode::Kind::Number, automation::decimal(value));
    }
    bool number_unsigned(number_unsigned_t value) override {
        return add(JsonNode::Kind::Number, automation::fromUtf8(std::to_string(value)));
    }
    bool number_float(number_float_t, const string_t& written) override {
        return add(JsonNode::Kind::Number, automation::fromUtf8(written));
    }
    bool string(string_t& value) override { return add(JsonNode::Kind::Text, unsealed(value)); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return open(JsonNode::Kind::Object); }
    bool end_object() override {
        refuseTwice(*open_.back());
        open_.pop_back();
        return true;
    }
    bool start_array(std::size_t) override { return open(JsonNode::Kind::List); }
    bool end_array() override {
        open_.pop_back();
        return true;
    }
    bool key(string_t& value) override {
        key_ = unsealed(value);
        return true;
    }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception& error) override {
        // "[json.exception.parse_error.101] parse error at line 3, column 5: what is wrong"
        std::string_view words = error.what();
        words.remove_prefix(std::min(words.find("] ") + 2, words.size()));
        unsigned long long line = line_;
        if (std::sscanf(words.data(), "parse error at line %llu", &line) == 1)
            words.remove_prefix(std::min(words.find(": ") + 2, words.size()));
        throw malformed(name_, line, words);
    }

  private:
    JsonNode& place() {
        JsonNode& node = open_.empty() ? root_ : open_.back()->children.emplace_back();
        node.line = line_;
        node.name = std::exchange(key_, {});
        return node;
    }
    bool add(JsonNode::Kind kind, std::u16string text) {
        JsonNode& node = place();
        node.kind = kind;
        node.text = std::move(text);
        return true;
    }
    bool open(JsonNode::Kind kind) {
        if (open_.size() == kMostJsonLevels)
            throw malformed(name_, line_,
                            "lists and objects stand within each other more than " +
                                std::to_string(kMostJsonLevels) + " deep");
        JsonNode& node = place();
        node.kind = kind;
        open_.push_back(&node);
        return true;
    }
    void refuseTwice(const JsonNode& object) const {
        std::vector<const JsonNode*> members;
        for (const JsonNode& member : object.children)
            members.push_back(&member);
        std::sort(members.begin(), members.end(),
                  [](const JsonNode* a, const JsonNode* b) { return a->name < b->name; });
        const auto twice =
            std::adjacent_find(members.begin(), members.end(),
                               [](const JsonNode* a, const JsonNode* b) { return a->name == b->name; });
        if (twice != members.end())
            throw malformed(name_, std::max(twice[0]->line, twice[1]->line),
                            "the member " + automation::toUtf8(inQuotes((*twice)->name)) + " stands twice");
    }

    const std::string& name_;
    const std::uint64_t& line_;
    JsonNode root_;
    std::vector<JsonNode*> open_;
    std::u16string key_;
};

}  // namespace

const JsonNode* JsonNode::member(std::u16string_view key) const {
    if (kind != Kind::Object)
        return nullptr;
    const auto found = std::find_if(children.begin(), children.end(),
                                    [key](const JsonNode& child) { return child.name == key; });
    return found == children.end() ? nullptr : &*found;
}

JsonNode readJson(std::string_view text, const std::string& name) {
    const std::string sealed = sealSurrogates(text);
    std::uint64_t line = 1;
    JsonTreeBuilder builder(name, line);
    const char* const end = sealed.data() + sealed.size();
    static_cast<void>(nlohmann::json::sax_parse(CountingIterator(sealed.data(), &line),
                                                CountingIterator(end, &line), &builder));
    return builder.root();
}

}  // namespace quorel::repository
