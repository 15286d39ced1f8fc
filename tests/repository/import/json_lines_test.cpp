#include "repository/import/json_text.h"
#include "repository/import/json_values.h"
#include "tests/repository/import/import_fixture.h"

namespace quorel::repository::testing {
namespace {

const std::string kHeader = "{\"quorel\":1,\"properties\":{\"name\":\"T\"}}\n";
const std::string kTypes =
    kHeader +
    R"({"metaNode":"Book","properties":[{"name":"Pages","datatype":"Integer"},{"name":"On","datatype":"Date"},{"name":"Data","datatype":"Binary"},{"name":"Note","datatype":"String"},{"name":"Price","datatype":"Double"},{"name":"Kind","datatype":"Enumeration","values":["a","b"]}]})"
    "\n"
    R"({"metaLink":"Book.Quotes.Book","source":"Book","target":"Book"})"
    "\n";

class JsonLines : public ::testing::Test {
  protected:
    /// The text is refused with these words and no file is left.
    void expectRefused(const std::string& text, const std::string& words) {
        const automation::Error error = errorOf([&] { importText(folder_.file(), text); });
        EXPECT_EQ(error.number(), 321);
        EXPECT_NE(std::string(error.what()).find(words), std::string::npos) << error.what();
        EXPECT_EQ(folder_.count(), 0U);
    }
    TemporaryFolder folder_;
};

TEST_F(JsonLines, TheSampleLibraryIsReadAndWrittenTheSame) {
    const std::string sample = contentsOf(QUOREL_SAMPLES "/library.jsonl");
    ASSERT_FALSE(sample.empty());
    importText(folder_.file(), sample);
    EXPECT_TRUE(exportText(folder_.file()) == sample);
    EXPECT_EQ(folder_.count(), 1U);
    const auto repository = automation::make<Repository>();
    repository->open(folder_.file());
    const Object books = repository->metaNodes().item(u"Book").toObject().get(u"Extension").toObject();
    const Object emma = books.item(u"book:emma").toObject();
    EXPECT_EQ(emma.get(u"Pages").toInteger(), 474);
    EXPECT_EQ(*emma.get(u"Available").getIf<bool>(), true);
    EXPECT_EQ(emma.get(u"Published").getIf<automation::Date>()->serial, -30688.0) << "23 December 1815";
    EXPECT_EQ(textOf(emma.get(u"Incoming_", u"Author.Wrote.Book", 1)
                         .toObject()
                         .get(u"source")
                         .toObject()
                         .get(u"name")),
              "Jane Austen");
}

TEST_F(JsonLines, EveryTextTravelsThere) {
    const std::u16string texts[] = {u"",
                                    std::u16string(u"\0a\0", 3),
                                    {0xD800},
                                    {0xDC00, 0xD800, u'x'},
                                    {0xDBFF, 0xDFFF},
                                    {0xDBFF, 0xDFFF, u'F', u'F', u'F', u'F', 0xD800},
                                    u"\\ud800 \" \n \u2028 👩‍👩‍👧 שלום"};
    automation::Ref<Repository> repository = automation::make<Repository>();
    repository->create(folder_.file("a"));
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        const std::u16string name = numbered(u"T", static_cast<int>(i)) + texts[i];
        const Object type = repository->makeMetaNode(name, texts[i]);
        type.call(u"MakeMetaProperty", u"P" + texts[i], u"Enumeration", texts[i],
                  automation::Array{{texts[i]}, 0});
        repository->makeNode(name, texts[i], name).call(u"SetProperty", u"P" + texts[i], texts[i]);
        repository->setProperty(u"R" + texts[i], texts[i]);
    }
    repository->close();
    const std::string text = exportText(folder_.file("a"));
    EXPECT_NE(text.find("\\uD800"), std::string::npos);
    importText(folder_.file("b"), text);
    EXPECT_EQ(exportText(folder_.file("b")), text);
    repository = automation::make<Repository>();
    repository->open(folder_.file("b"));
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        const std::u16string name = numbered(u"T", static_cast<int>(i)) + texts[i];
        const Object node = repository->metaNodes().item(name).toObject().get(u"Extension", name).toObject();
        EXPECT_TRUE(node.get(u"name").toString() == texts[i]) << i;
        EXPECT_TRUE(node.call(u"GetProperty", u"P" + texts[i]).toString() == texts[i]) << i;
    }
}

TEST_F(JsonLines, ValuesOfEveryTypeComeBackExactly) {
    automation::Ref<Repository> repository = automation::make<Repository>();
    repository->create(folder_.file("a"));
    const Object type = repository->makeMetaNode(u"T", u"");
    for (const char16_t* name : {u"Integer", u"Double", u"Boolean", u"Date", u"Binary", u"String"})
        type.call(u"MakeMetaProperty", name, name);
    const std::vector<std::pair<const char16_t*, Value>> values{
        {u"Integer", INT32_MIN},
        {u"Double", 0.1},
        {u"Double", 1e300},
        {u"Double", -0.0},
        {u"Double", HUGE_VAL},
        {u"Boolean", false},
        {u"Date", automation::Date{37000.25}},
        {u"Date", automation::Date{-1.75}},
        {u"Date", automation::Date{0.123456789}},
        {u"Binary", automation::Bytes{{0, 255, 16}, 0}},
        {u"Binary", automation::Bytes{}},
        {u"String", u""},
    };
    for (std::size_t i = 0; i < values.size(); ++i)
        repository->makeNode(u"T", u"", numbered(u"n", static_cast<int>(i)))
            .put(values[i].first, values[i].second);
    repository->close();
    const std::string text = exportText(folder_.file("a"));
    importText(folder_.file("b"), text);
    EXPECT_EQ(exportText(folder_.file("b")), text);
    repository = automation::make<Repository>();
    repository->open(folder_.file("b"));
    const Object nodes = repository->metaNodes().item(u"T").toObject().get(u"Extension").toObject();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Value value = nodes.item(numbered(u"n", static_cast<int>(i))).toObject().get(values[i].first);
        EXPECT_EQ(value.kind(), values[i].second.kind()) << i;
        if (const auto* bytes = value.getIf<automation::Bytes>())
            EXPECT_EQ(*bytes, *values[i].second.getIf<automation::Bytes>());
        else
            EXPECT_TRUE(Value::equal(value, values[i].second)) << i;
    }
}

TEST_F(JsonLines, DetachedLinksAndDynamicTypesAreKeptAndPassingOnesAreNot) {
    automation::Ref<Repository> repository = automation::make<Repository>();
    repository->create(folder_.file("a"));
    repository->makeDynamicMetaClass(u"A", u"").put(u"IsPersistent", true);
    repository->makeDynamicMetaAssoc(u"A.To.A", u"").put(u"IsPersistent", true);
    repository->makeDynamicMetaClass(u"Passing", u"");
    repository->makeNode(u"Passing", u"", u"p");
    const Object node = repository->makeNode(u"A", u"", u"a");
    repository->makeLink(u"A.To.A", u"", u"l", node, node);
    node.get(u"Incoming_", u"A.To.A").toObject().call(u"Remove", u"l");
    const std::string text = exportText(folder_.file("a"));
    EXPECT_EQ(text.find("Passing"), std::string::npos);
    EXPECT_NE(text.find("\"detached\":[\"target\"]"), std::string::npos);
    EXPECT_NE(text.find("\"dynamic\":true"), std::string::npos);
    importText(folder_.file("b"), text);
    EXPECT_EQ(exportText(folder_.file("b")), text);
}

TEST_F(JsonLines, BlanksBlankLinesAndWindowsLineEndsAreRead) {
    importText(
        folder_.file(),
        "\xEF\xBB\xBF { \"quorel\" : 1 }\r\n\r\n {\"metaNode\": \"A\"}\r\n{\"node\":\"x\",\"type\":\"A\"}");
    EXPECT_EQ(exportText(folder_.file()),
              "{\"quorel\":1,\"properties\":{}}\n{\"metaNode\":\"A\"}\n"
              "{\"node\":\"x\",\"type\":\"A\"}\n");
}

TEST_F(JsonLines, AMalformedLineNamesFileAndLineAndImportsNothing) {
    expectRefused("", "in.jsonl:0: the first line {\"quorel\":1} is missing");
    expectRefused("{\"metaNode\":\"A\"}\n", "in.jsonl:1: the first line");
    expectRefused("{\"quorel\":2}\n", "in.jsonl:1: the file is of another version");
    expectRefused(kHeader + "{\"metaNode\":\n", "in.jsonl:2: ");
    expectRefused(kHeader + "[1]\n", "in.jsonl:2: the line is no JSON object");
    expectRefused(kHeader + "{\"thing\":\"A\"}\n", "in.jsonl:2: the line is none of");
    expectRefused(kHeader + "{\"metaNode\":\"A\xFF\"}\n", "in.jsonl:2: ");
    expectRefused(kHeader + "{\"metaNode\":\"A\",\"descripton\":\"\"}\n",
                  "there is no member 'descripton' here");
    expectRefused(kHeader + "{\"metaNode\":7}\n", "the member 'metaNode' is no text");
    expectRefused(kHeader + "{\"metaNode\":\"\"}\n", "the name is empty");
    expectRefused(kTypes + "{\"metaNode\":\"Book\"}\n",
                  "in.jsonl:4: There is already a meta node named 'Book'");
    expectRefused(kTypes + "{\"metaLink\":\"L\",\"source\":\"Book\",\"target\":\"X\"}\n",
                  "no meta node named 'X'");
    expectRefused(kTypes + "{\"node\":\"x\",\"type\":\"Buch\"}\n",
                  "in.jsonl:4: there is no meta node named 'Buch'");
    expectRefused(kTypes + "{\"node\":\"\",\"type\":\"Book\"}\n", "the identifier is empty");
    expectRefused(kTypes + "{\"node\":\"x\",\"type\":\"Book\"}\n{\"node\":\"x\",\"type\":\"Book\"}\n",
                  "in.jsonl:5: There is already a node with the identifier 'x'");
    expectRefused(
        kTypes + "{\"link\":\"l\",\"type\":\"Book.Quotes.Book\",\"source\":\"x\",\"target\":\"x\"}\n",
        "there is no node with the identifier 'x'");
}

TEST_F(JsonLines, AValueOfTheWrongTypeIsRefused) {
    const auto node = [](const std::string& properties) {
        return kTypes + R"({"node":"x","type":"Book","properties":{)" + properties + "}}\n";
    };
    expectRefused(node("\"Pages\":\"7\""),
                  "in.jsonl:4: the property 'Pages' takes a value of the type Integer");
    expectRefused(node("\"Pages\":3000000000"), "'Pages'");
    expectRefused(node("\"Pages\":1.5"), "'Pages'");
    expectRefused(node("\"On\":\"2001-02-30\""), "'On'");
    expectRefused(node("\"On\":\"2001-02-03 04:05:06\""), "'On'");
    expectRefused(node("\"Data\":\"ABC\""), "'Data'");
    expectRefused(node("\"Data\":\"XY\""), "'Data'");
    expectRefused(node("\"Note\":7"), "'Note'");
    expectRefused(node("\"Note\":null"), "'Note'");
    expectRefused(node("\"Kind\":\"c\""), "'c' is none of the values of the property 'Kind': a, b");
    expectRefused(node("\"Weight\":1"), "'Book' has no property named 'Weight'");
}

TEST_F(JsonLines, AnExistingFileIsKeptUnlessItIsToBeReplaced) {
    writeFile(folder_.path() / "test.quorel", "A letter");
    EXPECT_EQ(errorOf([&] { importText(folder_.file(), kHeader); }).number(), 58);
    EXPECT_EQ(contentsOf(folder_.path() / "test.quorel"), "A letter");
    EXPECT_THROW(
        makeRepositoryFile(folder_.file(), true, [](Store&) { throw std::runtime_error("broken off"); }),
        std::runtime_error);
    EXPECT_EQ(contentsOf(folder_.path() / "test.quorel"), "A letter");
    makeRepositoryFile(folder_.file(), true, [](Store&) {});
    EXPECT_EQ(exportText(folder_.file()), "{\"quorel\":1,\"properties\":{}}\n");
    EXPECT_EQ(folder_.count(), 1U);
}

TEST_F(JsonLines, ALoadedFileIsAsGoodAsOneMadeByHand) {
    importText(folder_.file(), kTypes + "{\"node\":\"x\",\"type\":\"Book\"}\n");
    const auto repository = automation::make<Repository>();
    repository->open(folder_.file());
    const Object books = repository->metaNodes().item(u"Book").toObject().get(u"Extension").toObject();
    repository->makeNode(u"Book", u"Emma", u"e");
    EXPECT_EQ(books.get(u"Count").toInteger(), 2);
    EXPECT_EQ(textOf(books.call(u"FindByName", u"Emma").toObject().get(u"Identifier")), "e");
}

TEST(LineReading, LinesOfEveryLengthComeInOrderWhateverThePieces) {
    std::string text;
    for (std::size_t i = 0; i < 50; ++i)
        text.append(i * 37 % 400, 'x').append("\n");
    text.append(1U << 20, 'y');
    for (const std::size_t piece : {std::size_t{1}, std::size_t{64}, std::size_t{1} << 22}) {
        LineReader lines(std::make_unique<TextSource>(text, piece), "t");
        std::string_view line;
        for (std::size_t i = 0; i < 50; ++i) {
            ASSERT_TRUE(lines.next(line));
            ASSERT_EQ(line.size(), i * 37 % 400);
        }
        ASSERT_TRUE(lines.next(line));
        EXPECT_EQ(line.size(), 1U << 20);
        EXPECT_EQ(lines.lineNumber(), 51U);
        EXPECT_FALSE(lines.next(line));
        EXPECT_EQ(lines.bytesRead(), text.size());
    }
}

TEST(JsonDates, OnlyRealDatesAreDates) {
    EXPECT_EQ(dateOf("1899-12-30")->serial, 0);
    EXPECT_EQ(dateOf("1899-12-31T12:00:00")->serial, 1.5);
    EXPECT_EQ(dateOf("1899-12-29T06:00:00")->serial, -1.25) << "the time of day counts forward";
    EXPECT_EQ(dateOf("2000-02-29")->serial, 36585);
    for (const char* text :
         {"", "1900-02-29", "2000-13-01", "2000-01-01T24:00:00", "2000-01-01T00:00", "x000-01-01"})
        EXPECT_FALSE(dateOf(text)) << text;
}

}  // namespace
}  // namespace quorel::repository::testing
