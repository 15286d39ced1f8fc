// Searching a repository, called as a host calls it.

#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {
namespace {

class Search : public LibraryTest {
  protected:
    /// Indexes everything, in slices.
    void prepare() {
        int last = 0;
        for (int i = 0; i < 10'000 && last < 100; ++i) {
            const int now = repository_.call(u"PrepareSearch", 5).toInteger();
            EXPECT_GE(now, last);
            last = now;
        }
        EXPECT_EQ(last, 100);
    }
    Object search(const std::u16string& text, int limit = 100) {
        prepare();
        return repository_.call(u"Search", text, limit).toObject();
    }
    /// "Node Emma" for a name, "Node Emma Subtitle=A novel" for a value.
    static std::string lineOf(const Object& result) {
        std::string line = textOf(result.get(u"Kind")) + " " + textOf(result.get(u"name"));
        if (const std::string property = textOf(result.get(u"PropertyName")); !property.empty())
            line += " " + property + "=" + textOf(result.get(u"Text"));
        return line;
    }
    std::vector<std::string> found(const std::u16string& text, int limit = 100) {
        std::vector<std::string> lines;
        for (const Object& each : automation::each(search(text, limit)))
            lines.push_back(lineOf(each));
        return lines;
    }
    using Lines = std::vector<std::string>;
};

TEST_F(Search, FindsTypesThenNodesThenValuesWhateverTheCase) {
    const Object emma = makeBook(u"Emma", u"b1");
    const Object other = makeBook(u"Persuasion", u"b2");
    other.put(u"Subtitle", u"Not the book of Emma");
    makeAuthor(u"A lover of books", u"a1");
    EXPECT_EQ(found(u"EMMA"), (Lines{"Node Emma", "Node Persuasion Subtitle=Not the book of Emma"}));
    EXPECT_EQ(found(u"book"), (Lines{"Meta node Book", "Meta link Author.Wrote.Book", "Node A lover of books",
                                     "Node Persuasion Subtitle=Not the book of Emma"}));
}

TEST_F(Search, ExactNamesComeBeforeThoseBeginningSoAndThoseBeforeOthers) {
    makeBook(u"The little house", u"1");
    makeBook(u"Housekeeping", u"2");
    makeBook(u"House of cards", u"3");
    makeBook(u"House", u"4");
    const Object plain = makeBook(u"Nothing", u"5");
    plain.put(u"Subtitle", u"A house");
    const Object author = makeAuthor(u"House", u"6");
    Object link = this->link(author, plain, u"l1");
    link.put(u"name", u"House");
    EXPECT_EQ(found(u"house"),
              (Lines{"Node House", "Node House", "Link House", "Node House of cards", "Node Housekeeping",
                     "Node The little house", "Node Nothing Subtitle=A house"}));
}

TEST_F(Search, EveryWordCountsByItsBeginningInAnyOrder) {
    makeBook(u"Pride and Prejudice", u"1");
    makeBook(u"The pride of place", u"2");
    EXPECT_EQ(found(u"prej pri"), (Lines{"Node Pride and Prejudice"}));
    EXPECT_EQ(found(u"p"), (Lines{"Node Pride and Prejudice", "Node The pride of place"}));
    EXPECT_EQ(found(u"ride"), Lines{});
}

TEST_F(Search, WordsMayStandInTheNameAndInSeveralValues) {
    const Object emma = makeBook(u"Emma", u"1");
    emma.put(u"Subtitle", u"A novel in three volumes");
    emma.put(u"Pages", 474);
    EXPECT_EQ(found(u"emma novel"), (Lines{"Node Emma Subtitle=A novel in three volumes"}));
    EXPECT_EQ(found(u"474 novel three"), (Lines{"Node Emma Subtitle=A novel in three volumes"}));
    EXPECT_EQ(found(u"474 play"), Lines{});
}

TEST_F(Search, CaseAndAccentsDoNotCount) {
    makeBook(u"Les Mis\u00E9rables", u"1");
    makeBook(u"\u00C5NGSTR\u00D6M", u"2");
    EXPECT_EQ(found(u"miserab"), (Lines{automation::toUtf8(u"Node Les Mis\u00E9rables")}));
    EXPECT_EQ(found(u"\u00E5ngstr\u00F6m").size(), 1U);
    EXPECT_EQ(found(u"angstrom").size(), 1U);
    EXPECT_EQ(found(u"MIS\u00C9RABLES").size(), 1U);
}

TEST_F(Search, NumbersDatesAndEnumerationsAreFoundAsTheyAreShown) {
    const Object emma = makeBook(u"Emma", u"1");
    emma.put(u"Pages", 474);
    emma.put(u"Price", 12.5);
    emma.put(u"InPrint", true);
    emma.put(u"Binding", u"Paperback");
    emma.put(u"Published", Value(automation::Date{-30'000}));
    EXPECT_EQ(found(u"474"), (Lines{"Node Emma Pages=474"}));
    EXPECT_EQ(found(u"12.5"), (Lines{"Node Emma Price=" + textOf(Value(12.5))}));
    EXPECT_EQ(found(u"true"), (Lines{"Node Emma InPrint=True"}));
    EXPECT_EQ(found(u"paper"), (Lines{"Node Emma Binding=Paperback"}));
    const Value shown(Value(automation::Date{-30'000}).toString());
    EXPECT_EQ(found(shown.toString()), (Lines{"Node Emma Published=" + textOf(shown)}));
}

TEST_F(Search, BytesAreNotSearched) {
    const Object emma = makeBook(u"Emma", u"1");
    emma.put(u"Cover", Value(automation::Bytes{{'c', 'o', 'v', 'e', 'r'}, 0}));
    EXPECT_EQ(found(u"cover"), Lines{});
}

TEST_F(Search, AnIdentifierIsFoundWhole) {
    makeBook(u"Emma", u"isbn:0-19 X");
    EXPECT_EQ(found(u"  isbn:0-19 X "), (Lines{"Node Emma Identifier=isbn:0-19 X"}));
    EXPECT_EQ(found(u"isbn"), Lines{});
}

TEST_F(Search, ANewNameAndANewValueCountAndTheOldOnesNoMore) {
    const Object emma = makeBook(u"Emma", u"1");
    emma.put(u"Subtitle", u"comedy");
    EXPECT_EQ(found(u"comedy").size(), 1U);
    emma.put(u"name", u"Persuasion");
    emma.put(u"Subtitle", u"romance");
    EXPECT_EQ(found(u"emma"), Lines{});
    EXPECT_EQ(found(u"comedy"), Lines{});
    EXPECT_EQ(found(u"pers"), (Lines{"Node Persuasion"}));
    EXPECT_EQ(found(u"roman"), (Lines{"Node Persuasion Subtitle=romance"}));
    emma.put(u"Subtitle", Value());
    EXPECT_EQ(found(u"roman"), Lines{});
}

TEST_F(Search, WhatIsRemovedIsFoundNoMore) {
    const Object emma = makeBook(u"Emma", u"1");
    const Object author = makeAuthor(u"Jane", u"2");
    Object written = link(author, emma, u"l");
    written.put(u"Role", u"novelist");
    EXPECT_EQ(found(u"novelist"), (Lines{"Link  Role=novelist"}));
    linkExtension().call(u"Remove", u"l");
    EXPECT_EQ(found(u"novelist"), Lines{});
    extension(u"Book").call(u"Remove", u"1");
    EXPECT_EQ(found(u"emma"), Lines{});
    makeBook(u"Emma", u"1");
    EXPECT_EQ(found(u"emma"), (Lines{"Node Emma"}));
}

TEST_F(Search, TypesAreFoundAsTheyAreNow) {
    EXPECT_EQ(found(u"pub"), Lines{});
    repository_.call(u"MakeDynamicMetaClass", u"Publisher");
    EXPECT_EQ(found(u"pub"), (Lines{"Meta node Publisher"}));
    repository_.call(u"DeleteDynamicMetaClass", u"Publisher");
    EXPECT_EQ(found(u"pub"), Lines{});
    EXPECT_EQ(found(u"wrote author"), (Lines{"Meta link Author.Wrote.Book"}));
}

TEST_F(Search, AResultGivesTheObjectItself) {
    const Object emma = makeBook(u"Emma", u"1");
    const Object results = search(u"emma");
    ASSERT_EQ(results.get(u"Count").toInteger(), 1);
    const Object result = results.get(u"Item", 1).toObject();
    EXPECT_EQ(result.get(u"Object").toObject(), emma);
    EXPECT_EQ(textOf(result.get(u"TypeName")), "Book");
    EXPECT_EQ(textOf(result.get(u"Text")), "");
    EXPECT_TRUE(results.get(u"Complete").toBoolean());
    EXPECT_EQ(errorOf([&] { static_cast<void>(results.get(u"Item", 2)); }).number(), 9);
    const Object type = search(u"book").get(u"Item", 1).toObject();
    EXPECT_EQ(type.get(u"Object").toObject(), repository_.get(u"MetaNodes", u"Book").toObject());
    EXPECT_EQ(textOf(type.get(u"TypeName")), "");
}

TEST_F(Search, ARemovedObjectOfAResultSaysSo) {
    makeBook(u"Emma", u"1");
    const Object result = search(u"emma").get(u"Item", 1).toObject();
    extension(u"Book").call(u"Remove", u"1");
    EXPECT_EQ(textOf(result.get(u"name")), "Emma");
    const Object gone = result.get(u"Object").toObject();
    EXPECT_EQ(errorOf([&] { static_cast<void>(gone.get(u"name")); }).number(), 5);
}

TEST_F(Search, NoMoreThanTheLimitIsFound) {
    for (int i = 0; i < 30; ++i)
        makeBook(u"Emma", numbered(u"b", i));
    EXPECT_EQ(found(u"emma", 7).size(), 7U);
    EXPECT_EQ(found(u"emma", 0).size(), 1U);
    EXPECT_EQ(found(u"e", 12).size(), 12U);
    EXPECT_EQ(found(u"emma", 1'000'000).size(), 30U);
}

TEST_F(Search, WhatIsTypedIsTextAndNothingElse) {
    makeBook(u"Emma AND \"Persuasion\" NOT (NEAR)", u"1");
    for (const char16_t* text :
         {u"\"", u"\"emma", u"emma\" OR \"x", u"* ", u"text:emma", u"emma*", u"(", u"NEAR(a b)", u"^emma",
          u"-emma", u"{a b}:c", u"';DROP TABLE node;--", u"%", u"_", u"\\"})
        EXPECT_NO_THROW(static_cast<void>(found(text))) << automation::toUtf8(text);
    EXPECT_EQ(found(u"\"emma").size(), 1U);
    EXPECT_EQ(found(u"emma AND \"persuasion\"").size(), 1U);
    EXPECT_EQ(found(u"emma OR").size(), 0U);
    EXPECT_EQ(found(u"emma*").size(), 1U);
    EXPECT_EQ(found(u""), Lines{});
    EXPECT_EQ(found(u" \t\r\n"), Lines{});
}

TEST_F(Search, HostileTextIsData) {
    const std::u16string nul(u"before\0after", 12);
    const std::u16string halves{u'x', char16_t{0xD800}, u'y', char16_t{0xDC00}};
    const std::u16string rightToLeft = u"\u202E\u05E9\u05DC\u05D5\u05DD abc";
    std::u16string large = u"start ";
    while (large.size() < 1'000'000)
        large += u"filling ";
    large += u"theend";
    const Object first = makeBook(nul, u"1");
    first.put(u"Subtitle", large);
    makeBook(halves, u"2");
    makeBook(rightToLeft, u"3");
    EXPECT_EQ(found(nul).size(), 1U);
    EXPECT_EQ(found(u"after").size(), 1U);
    EXPECT_EQ(found(halves).size(), 1U);
    EXPECT_EQ(found(std::u16string(1, char16_t{0xD800})).size(), 0U);
    EXPECT_EQ(found(u"\u05E9\u05DC").size(), 1U);
    EXPECT_EQ(found(u"filling").size(), 1U);
    EXPECT_LT(found(u"filling").front().size(), 300U);
    EXPECT_EQ(found(u"theend").size(), 0U) << "only the beginning of a large value is indexed";
    EXPECT_EQ(found(large).size(), 1U) << "of what is typed only the beginning counts";
    EXPECT_EQ(found(std::u16string(1'000'000, u'a')).size(), 0U);
}

TEST_F(Search, ALongValueIsShownAroundTheWordInOneLine) {
    const Object emma = makeBook(u"Emma", u"1");
    emma.put(u"Subtitle",
             u"One line\r\n" + std::u16string(300, u'-') + u" needle\n" + std::u16string(300, u'+'));
    const std::u16string shown = search(u"needle").get(u"Item", 1).toObject().get(u"Text").toString();
    EXPECT_NE(shown.find(u"needle"), std::u16string::npos);
    EXPECT_EQ(shown.find_first_of(u"\r\n"), std::u16string::npos);
    EXPECT_LT(shown.size(), 200U);
    EXPECT_EQ(shown.front(), u'\u2026');
    EXPECT_EQ(shown.back(), u'\u2026');
}

TEST_F(Search, TheIndexOutlivesTheProgram) {
    makeBook(u"Emma", u"1").put(u"Subtitle", u"comedy");
    EXPECT_EQ(found(u"comedy").size(), 1U);
    reopen();
    EXPECT_EQ(repository_.call(u"PrepareSearch", 1).toInteger(), 100);
    EXPECT_EQ(found(u"comedy").size(), 1U);
    extension(u"Book").get(u"Item", u"1").toObject().put(u"Subtitle", u"tragedy");
    reopen();
    EXPECT_LT(native_->store().search(u"tragedy", 9).size(), 1U) << "nobody has indexed it yet";
    EXPECT_EQ(found(u"tragedy").size(), 1U);
}

TEST_F(Search, ChangesOfAnotherConnectionAreFound) {
    const Object emma = makeBook(u"Emma", u"1");
    EXPECT_EQ(found(u"emma").size(), 1U);
    const auto other = automation::make<Repository>();
    other->open(folder_.file());
    other->metaNodes()
        .get(u"Item", u"Book")
        .toObject()
        .get(u"Extension", u"1")
        .toObject()
        .put(u"name", u"Renamed");
    other->makeNode(u"Book", u"Renamed too", u"2");
    EXPECT_EQ(found(u"emma"), Lines{});
    EXPECT_EQ(found(u"renamed"), (Lines{"Node Renamed", "Node Renamed too"}));
}

TEST_F(Search, ASliceIsShortAndTellsHowFarItIs) {
    {
        Transaction transaction(native_->store());
        const MetaId book = native_->metaNamed(Kind::Node, u"Book").id;
        for (int i = 0; i < 20'000; ++i)
            native_->store().addNode(book, numbered(u"Book about the matter ", i), numbered(u"b", i));
        transaction.commit();
    }
    const int first = repository_.call(u"PrepareSearch", 1).toInteger();
    EXPECT_LT(first, 100);
    const Object some = Object(native_).call(u"Search", u"matter").toObject();
    EXPECT_FALSE(some.get(u"Complete").toBoolean());
    EXPECT_EQ(some.get(u"Count").toInteger(), 100);
    EXPECT_EQ(found(u"matter 19999"), (Lines{"Node Book about the matter 19999"}));
}

TEST_F(Search, WordsThatBeginAlikeByTheThousandAreToldApart) {
    {
        Transaction transaction(native_->store());
        const MetaId book = native_->metaNamed(Kind::Node, u"Book").id;
        for (int i = 0; i < 14'000; ++i)
            native_->store().addNode(book,
                                     numbered(u"No. customer", i) + (i % 2 == 0 ? u" custody" : u" value"),
                                     numbered(u"b", i));
        transaction.commit();
    }
    EXPECT_EQ(found(u"customer9999"), (Lines{"Node No. customer9999 value"}));
    EXPECT_EQ(found(u"custo").size(), 100U);
    EXPECT_EQ(found(u"custody customer999"),
              (Lines{"Node No. customer9990 custody", "Node No. customer9992 custody",
                     "Node No. customer9994 custody", "Node No. customer9996 custody",
                     "Node No. customer9998 custody"}));
    EXPECT_EQ(found(u"customer value custody"), Lines{});
}

TEST_F(Search, AnIndexFullOfWhatIsGoneIsMadeAnew) {
    {
        Transaction transaction(native_->store());
        const MetaId book = native_->metaNamed(Kind::Node, u"Book").id;
        for (int i = 0; i < 3'000; ++i)
            native_->store().addNode(book, u"about alpha", numbered(u"b", i));
        transaction.commit();
    }
    EXPECT_EQ(found(u"alpha").size(), 100U);
    {
        Transaction transaction(native_->store());
        for (int i = 0; i < 3'000; ++i)
            native_->store().setName(Kind::Node, static_cast<ElementId>(i + 1), u"about beta");
        transaction.commit();
    }
    EXPECT_EQ(found(u"alpha"), Lines{});
    EXPECT_LT(repository_.call(u"PrepareSearch", 1).toInteger(), 100) << "it is being made anew";
    EXPECT_EQ(found(u"alpha"), Lines{});
    EXPECT_EQ(repository_.call(u"PrepareSearch", 1).toInteger(), 100);
    EXPECT_EQ(found(u"beta").size(), 100U);
}

TEST_F(Search, AClosedRepositoryIsNotSearched) {
    native_->close();
    EXPECT_EQ(errorOf([&] { static_cast<void>(repository_.call(u"Search", u"x")); }).number(), 5);
    EXPECT_EQ(errorOf([&] { static_cast<void>(repository_.call(u"PrepareSearch")); }).number(), 5);
}

}  // namespace
}  // namespace quorel::repository::testing
