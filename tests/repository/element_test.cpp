#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {
namespace {

using automation::byRef;
using automation::Bytes;
using automation::Date;

using Strings = std::vector<std::string>;

using Elements = LibraryTest;

TEST_F(Elements, ANodeHasNameIdentifierAndParent) {
    const Object book = makeBook(u"Emma", u"ID:1");
    EXPECT_EQ(textOf(book.get(u"name")), "Emma");
    EXPECT_EQ(textOf(book.get(u"Identifier")), "ID:1");
    EXPECT_EQ(book.get(u"Parent").toObject(), repository_.get(u"MetaNodes", u"Book").toObject());
    EXPECT_EQ(textOf(Value(book)), "Emma") << "the name is the default member";
    book.put(u"name", u"Persuasion");
    reopen();
    EXPECT_EQ(textOf(extension(u"Book").item(u"ID:1").toObject().get(u"name")), "Persuasion");
}

TEST_F(Elements, TheSameRowIsTheSameObjectWhileReferenced) {
    const Object book = makeBook(u"Emma", u"ID:1");
    EXPECT_EQ(extension(u"Book").item(u"ID:1").toObject(), book);
    for (const Object& each : automation::each(extension(u"Book")))
        EXPECT_EQ(each, book);
    const Object author = makeAuthor(u"Austen", u"ID:2");
    const Object wrote = link(author, book, u"ID:3");
    EXPECT_EQ(wrote.get(u"source").toObject(), author);
    EXPECT_EQ(author.get(u"Outgoing_", u"Author.Wrote.Book", 1).toObject(), wrote);
    EXPECT_NE(makeBook(u"Emma", u"ID:4"), book);
}

TEST_F(Elements, PropertiesAreReadAndWrittenInEveryWay) {
    const Object book = makeBook(u"Emma", u"b");
    book.call(u"SetProperty", u"Pages", 474);
    EXPECT_EQ(book.call(u"GetProperty", u"Pages").toInteger(), 474);
    EXPECT_EQ(book.get(u"Prop_", u"pages").toInteger(), 474) << "property names ignore case";
    EXPECT_EQ(book.get(u"Pages").toInteger(), 474);
    EXPECT_EQ(book.get(u"PAGES").toInteger(), 474);
    EXPECT_EQ(book.get(u"Prop_Pages").toInteger(), 474);
    book.put(u"Pages", 500);
    EXPECT_EQ(book.get(u"Properties", u"Pages").toObject().get(u"Value").toInteger(), 500);
    book.get(u"Properties").toObject().item(u"Pages").toObject().put(u"Value", 501);
    reopen();
    EXPECT_EQ(extension(u"Book").item(u"b").toObject().get(u"Pages").toInteger(), 501);
}

TEST_F(Elements, ValuesComeBackInTheirDeclaredType) {
    const Object book = makeBook(u"Emma", u"b");
    book.put(u"Pages", u"474");
    book.put(u"Price", u"12.5");
    book.put(u"InPrint", 1);
    book.put(u"Published", Date{2500.25});
    book.put(u"Binding", u"Paperback");
    book.put(u"Cover", Bytes{{0, 1, 255}, 0});
    book.put(u"Subtitle", 7);
    EXPECT_EQ(*book.get(u"Pages").getIf<std::int32_t>(), 474);
    EXPECT_EQ(*book.get(u"Price").getIf<double>(), 12.5);
    EXPECT_EQ(*book.get(u"InPrint").getIf<bool>(), true);
    EXPECT_EQ(*book.get(u"Published").getIf<Date>(), Date{2500.25});
    EXPECT_EQ(*book.get(u"Binding").text(), u"Paperback");
    EXPECT_EQ(*book.get(u"Cover").getIf<Bytes>(), (Bytes{{0, 1, 255}, 0}));
    EXPECT_EQ(*book.get(u"Subtitle").text(), u"7");
    book.put(u"Cover", Bytes{});
    EXPECT_EQ(*book.get(u"Cover").getIf<Bytes>(), Bytes{});
    book.put(u"Subtitle", u"");
    EXPECT_EQ(*book.get(u"Subtitle").text(), u"");
}

TEST_F(Elements, AValueOfTheWrongTypeIsRefusedAndChangesNothing) {
    const Object book = makeBook(u"Emma", u"b");
    book.put(u"Pages", 1);
    EXPECT_EQ(errorOf([&] { book.put(u"Pages", u"many"); }).description(),
              u"The property 'Pages' takes a value of the type Integer");
    EXPECT_EQ(errorOf([&] { book.put(u"Pages", 1e12); }).number(), 6);
    EXPECT_EQ(errorOf([&] { book.put(u"Cover", u"text"); }).number(), 13);
    EXPECT_EQ(errorOf([&] { book.put(u"Subtitle", Bytes{}); }).number(), 13);
    EXPECT_EQ(errorOf([&] { book.put(u"Binding", u"Leather"); }).description(),
              u"'Leather' is none of the values of the property 'Binding': Hardcover, Paperback");
    EXPECT_EQ(book.get(u"Pages").toInteger(), 1);
}

TEST_F(Elements, AnUnsetPropertyIsEmptyAndEmptyOrNullUnsetsOne) {
    const Object book = makeBook(u"Emma", u"b");
    EXPECT_TRUE(book.get(u"Pages").isEmpty());
    book.put(u"Pages", 3);
    book.put(u"Pages", Value());
    EXPECT_TRUE(book.get(u"Pages").isEmpty());
    book.put(u"Pages", 3);
    book.put(u"Pages", Value::null());
    EXPECT_TRUE(book.get(u"Pages").isEmpty());
}

TEST_F(Elements, SetPropertyWithTheNameAloneReadsAndChangesNothing) {
    const Object book = makeBook(u"Emma", u"b");
    book.put(u"Cover", Bytes{{9}, 0});
    EXPECT_EQ(*book.call(u"SetProperty", u"Cover").getIf<Bytes>(), (Bytes{{9}, 0}));
    EXPECT_EQ(*book.get(u"Cover").getIf<Bytes>(), (Bytes{{9}, 0}));
}

TEST_F(Elements, AnUnknownMemberOrPropertyIsError438) {
    const Object book = makeBook(u"Emma", u"b");
    EXPECT_EQ(errorOf([&] { book.call(u"Weight"); }).number(), 438);
    EXPECT_EQ(errorOf([&] { book.call(u"GetProperty", u"Weight"); }).description(),
              u"'Book' has no property named 'Weight'");
    EXPECT_EQ(errorOf([&] { book.call(u"Prop_Weight"); }).number(), 438);
    EXPECT_EQ(errorOf([&] { book.call(u"Pages", 1); }).number(), 450);
}

TEST_F(Elements, APropertyMemberResolvedOnOneTypeIsRefusedOnAnotherThatLacksIt) {
    const Object book = makeBook(u"Emma", u"b");
    const Object author = makeAuthor(u"Austen", u"a");
    book.put(u"Pages", 3);
    const automation::Member pages(u"Pages");
    EXPECT_EQ(book.get(pages).toInteger(), 3);
    EXPECT_EQ(errorOf([&] { static_cast<void>(author.get(pages)); }).number(), 438);
    const Object author2 = repository_.get(u"MetaNodes", u"Author").toObject();
    author2.call(u"MakeMetaProperty", u"PAGES", u"Integer");
    author.put(u"Pages", 8);
    EXPECT_EQ(author.get(pages).toInteger(), 8);
    EXPECT_EQ(book.get(pages).toInteger(), 3);
}

TEST_F(Elements, TheNameAndTheIdentifierAnswerAsProperties) {
    const Object book = makeBook(u"Emma", u"b");
    EXPECT_EQ(textOf(book.get(u"Prop_", u"Name")), "Emma");
    EXPECT_EQ(textOf(book.call(u"GetProperty", u"identifier")), "b");
    repository_.get(u"MetaNodes", u"Book").toObject().call(u"MakeMetaProperty", u"Name", u"String");
    EXPECT_EQ(textOf(book.get(u"Prop_", u"Name")), "Emma") << "a declared one is the same";
    book.call(u"SetProperty", u"Name", u"Emma 2");
    EXPECT_EQ(textOf(book.get(u"name")), "Emma 2");
    EXPECT_EQ(errorOf([&] { book.call(u"SetProperty", u"Identifier", u"c"); }).number(), 438);
}

TEST_F(Elements, LinksJoinNodesAndAreFoundFromBothEnds) {
    const Object austen = makeAuthor(u"Austen", u"a");
    const Object emma = makeBook(u"Emma", u"b1");
    const Object persuasion = makeBook(u"Persuasion", u"b2");
    const Object first = link(austen, emma, u"l1");
    const Object second = link(austen, persuasion, u"l2");
    EXPECT_EQ(first.get(u"source").toObject(), austen);
    EXPECT_EQ(first.get(u"target").toObject(), emma);
    EXPECT_EQ(first.get(u"Parent").toObject(), repository_.get(u"MetaLinks", 1).toObject());
    const Object outgoing = austen.get(u"Outgoing_", u"Author.Wrote.Book").toObject();
    EXPECT_EQ(outgoing.get(u"Count").toInteger(), 2);
    EXPECT_EQ(outgoing.item(u"l2").toObject(), second);
    EXPECT_EQ(outgoing.item(1).toObject(), first);
    EXPECT_EQ(austen.get(u"Incoming_", u"Author.Wrote.Book").toObject().get(u"Count").toInteger(), 0);
    EXPECT_EQ(emma.get(u"Incoming_", u"Author.Wrote.Book", u"l1").toObject(), first);
    EXPECT_EQ(errorOf([&] { emma.call(u"Incoming_", u"Author.Wrote.Book", u"l2"); }).number(), 9);
    EXPECT_EQ(errorOf([&] { austen.call(u"Outgoing_", u"Author.Read.Book"); }).number(), 9);
    first.put(u"Role", u"writer");
    EXPECT_EQ(textOf(first.call(u"GetProperty", u"Role")), "writer");
    EXPECT_EQ(linkExtension().get(u"Count").toInteger(), 2);
    EXPECT_EQ(linkExtension().item(u"l1").toObject(), first);
}

TEST_F(Elements, LinkCollectionsAnswerAsMembersWithTheNameOfTheMetaLink) {
    repository_.call(u"MakeMetaLink", u"Has", u"Author", u"Book");
    const Object austen = makeAuthor(u"Austen", u"a");
    const Object emma = makeBook(u"Emma", u"b");
    repository_.call(u"MakeLink", u"Has", u"", u"l", austen, emma);
    EXPECT_EQ(austen.get(u"Outgoing_Has").toObject().get(u"Count").toInteger(), 1);
    EXPECT_EQ(austen.get(u"Outgoing_Has").toObject().get(u"Item", 1).toObject().get(u"target").toObject(),
              emma);
    EXPECT_EQ(emma.get(u"incoming_has", 1).toObject().get(u"source").toObject(), austen);
    EXPECT_EQ(errorOf([&] { austen.call(u"Outgoing_Hat"); }).number(), 438);
}

TEST_F(Elements, ALinkBetweenTheWrongNodesIsRefused) {
    const Object austen = makeAuthor(u"Austen", u"a");
    const Object emma = makeBook(u"Emma", u"b");
    EXPECT_EQ(errorOf([&] { link(emma, austen, u"l"); }).description(),
              u"The link's source must be of the type 'Author', not 'Book'");
    EXPECT_EQ(errorOf([&] { link(austen, austen, u"l"); }).number(), 13);
    EXPECT_EQ(errorOf([&] { link(austen, Object(), u"l"); }).number(), 13);
    EXPECT_EQ(errorOf([&] { link(austen, repository_, u"l"); }).number(), 13);
    EXPECT_EQ(errorOf([&] { link(austen, emma, u""); }).number(), 5);
    EXPECT_EQ(linkExtension().get(u"Count").toInteger(), 0);
}

TEST_F(Elements, AnIdentifierIsUsedOnce) {
    makeBook(u"Emma", u"b");
    EXPECT_EQ(errorOf([&] { makeBook(u"Other", u"b"); }).description(),
              u"There is already a node with the identifier 'b'");
    EXPECT_EQ(errorOf([&] { makeAuthor(u"Austen", u"b"); }).number(), 457);
    EXPECT_EQ(errorOf([&] { makeBook(u"Emma", u""); }).description(), u"An identifier must not be empty");
    EXPECT_EQ(errorOf([&] { repository_.call(u"MakeNode", u"Buch", u"x", u"y"); }).number(), 9);
    EXPECT_EQ(extension(u"Book").get(u"Count").toInteger(), 1);
}

TEST_F(Elements, AnExtensionHoldsTheInstancesOfItsTypeAlone) {
    makeBook(u"Emma", u"b1");
    makeAuthor(u"Austen", u"a");
    makeBook(u"Persuasion", u"b2");
    EXPECT_EQ(namesOf(extension(u"Book")), (Strings{"Emma", "Persuasion"}));
    EXPECT_EQ(extension(u"Book").get(u"Count").toInteger(), 2);
    EXPECT_EQ(textOf(extension(u"Book").item(2)), "Persuasion");
    EXPECT_EQ(textOf(repository_.get(u"MetaNodes", u"Book").toObject().get(u"Extension", u"b1")), "Emma");
    EXPECT_EQ(errorOf([&] { static_cast<void>(extension(u"Book").item(u"a")); }).number(), 9);
    EXPECT_EQ(errorOf([&] { static_cast<void>(extension(u"Book").item(3)); }).number(), 9);
    EXPECT_EQ(textOf(extension(u"Book").call(u"FindByName", u"Persuasion").toObject().get(u"Identifier")),
              "b2");
    EXPECT_FALSE(extension(u"Book").call(u"FindByName", u"Austen").toObject());
}

TEST_F(Elements, RemoveSetsItsArgumentAndReturnsTheSame) {
    makeBook(u"Emma", u"b1");
    const Object books = extension(u"Book");
    Value removed(u"anything");
    EXPECT_FALSE(books.call(u"Remove", u"b2", byRef(removed)).toBoolean());
    EXPECT_FALSE(*removed.getIf<bool>());
    EXPECT_TRUE(books.call(u"Remove", u"b1", byRef(removed)).toBoolean());
    EXPECT_TRUE(*removed.getIf<bool>());
    EXPECT_EQ(books.get(u"Count").toInteger(), 0);
    EXPECT_FALSE(books.call(u"Remove", u"b1").toBoolean()) << "the argument may be left out";
}

TEST_F(Elements, ALinkIsRemovedFromItsEndsAndThenFromTheExtension) {
    const Object austen = makeAuthor(u"Austen", u"a");
    const Object emma = makeBook(u"Emma", u"b");
    const Object wrote = link(austen, emma, u"l");
    const auto outgoing = [&] { return austen.get(u"Outgoing_", u"Author.Wrote.Book").toObject(); };
    const auto incoming = [&] { return emma.get(u"Incoming_", u"Author.Wrote.Book").toObject(); };
    Value removed;
    outgoing().call(u"Remove", u"l", byRef(removed));
    EXPECT_TRUE(removed.toBoolean());
    EXPECT_EQ(outgoing().get(u"Count").toInteger(), 0);
    EXPECT_EQ(incoming().get(u"Count").toInteger(), 1);
    EXPECT_EQ(wrote.get(u"target").toObject(), emma) << "the link still tells its ends";
    outgoing().call(u"Remove", u"l", byRef(removed));
    EXPECT_FALSE(removed.toBoolean());
    incoming().call(u"Remove", u"l", byRef(removed));
    EXPECT_TRUE(removed.toBoolean());
    EXPECT_EQ(linkExtension().get(u"Count").toInteger(), 1);
    linkExtension().call(u"Remove", u"l", byRef(removed));
    EXPECT_TRUE(removed.toBoolean());
    EXPECT_EQ(linkExtension().get(u"Count").toInteger(), 0);
    EXPECT_EQ(errorOf([&] { wrote.call(u"source"); }).description(),
              u"The link has been removed from the repository");
}

TEST_F(Elements, RemovingALinkFromTheExtensionTakesItFromItsEnds) {
    const Object austen = makeAuthor(u"Austen", u"a");
    link(austen, makeBook(u"Emma", u"b"), u"l");
    linkExtension().call(u"Remove", u"l");
    EXPECT_EQ(austen.get(u"Outgoing_", u"Author.Wrote.Book").toObject().get(u"Count").toInteger(), 0);
}

TEST_F(Elements, ANodeWithLinksStays) {
    const Object austen = makeAuthor(u"Austen", u"a");
    const Object emma = makeBook(u"Emma", u"b");
    link(austen, emma, u"l");
    Value removed;
    EXPECT_EQ(errorOf([&] { extension(u"Book").call(u"Remove", u"b", byRef(removed)); }).description(),
              u"The node 'b' still has 1 link");
    EXPECT_EQ(textOf(emma.get(u"name")), "Emma");
    emma.get(u"Incoming_", u"Author.Wrote.Book").toObject().call(u"Remove", u"l");
    extension(u"Book").call(u"Remove", u"b", byRef(removed));
    EXPECT_TRUE(removed.toBoolean()) << "its own collections are empty now";
    EXPECT_EQ(linkExtension().get(u"Count").toInteger(), 0) << "a link without an end is no link";
    EXPECT_EQ(austen.get(u"Outgoing_", u"Author.Wrote.Book").toObject().get(u"Count").toInteger(), 0);
}

TEST_F(Elements, AHandleOfARemovedNodeGivesAReadableErrorForEveryMember) {
    const Object book = makeBook(u"Emma", u"b");
    book.put(u"Pages", 3);
    extension(u"Book").call(u"Remove", u"b");
    const char16_t* const reads[] = {u"name", u"Identifier", u"Parent", u"Pages", u"Subtitle", u"Text"};
    for (const char16_t* member : reads)
        EXPECT_EQ(errorOf([&] { book.call(member); }).description(),
                  u"The node has been removed from the repository")
            << automation::toUtf8(member);
    EXPECT_EQ(errorOf([&] { book.put(u"name", u"x"); }).number(), 5);
    EXPECT_EQ(errorOf([&] { book.put(u"Pages", 1); }).number(), 5);
    EXPECT_EQ(errorOf([&] { book.call(u"Incoming_", u"Author.Wrote.Book"); }).number(), 5);
    const Object next = makeBook(u"Persuasion", u"b");
    EXPECT_EQ(errorOf([&] { book.call(u"name"); }).number(), 5) << "a later node does not take its place";
    EXPECT_TRUE(next.get(u"Pages").isEmpty()) << "nor does it inherit";
}

TEST_F(Elements, ACollectionMayChangeWhileItIsEnumerated) {
    for (int i = 1; i <= 200; ++i)
        makeBook(u"B", numbered(u"b", i));
    const Object books = extension(u"Book");
    int seen = 0;
    for (const Object& each : automation::each(books)) {
        ++seen;
        each.put(u"name", u"renamed");
        makeBook(u"later", numbered(u"n", seen));
        if (seen == 1)
            books.call(u"Remove", u"b200");
    }
    EXPECT_EQ(seen, 199);
    EXPECT_EQ(books.get(u"Count").toInteger(), 398);
}

TEST_F(Elements, SearchLooksIntoNameAndTextProperties) {
    const Object book = makeBook(u"Pride and Prejudice", u"b");
    book.put(u"Subtitle", u"A Novel in Three Volumes");
    EXPECT_TRUE(book.call(u"Search", u"PREJUDICE").toBoolean());
    EXPECT_TRUE(book.call(u"Search", u"three").toBoolean());
    EXPECT_FALSE(book.call(u"Search", u"four").toBoolean());
}

TEST_F(Elements, TextIsTheNameOrElseTheIdentifier) {
    EXPECT_EQ(textOf(makeBook(u"Emma", u"b1").get(u"Text")), "Emma");
    EXPECT_EQ(textOf(makeBook(u"", u"b2").get(u"Text")), "b2");
}

TEST_F(Elements, APropertiesCollectionHoldsDefinitionAndValueTogether) {
    const Object book = makeBook(u"Emma", u"b");
    book.put(u"Binding", u"Hardcover");
    const Object binding = book.get(u"Properties", u"Binding").toObject();
    EXPECT_EQ(textOf(binding.get(u"name")), "Binding");
    EXPECT_EQ(textOf(binding.get(u"datatype")), "Enumeration");
    EXPECT_EQ(textOf(Value(binding)), "Hardcover") << "the value is the default member";
    EXPECT_EQ(binding.get(u"Values").getIf<automation::Array>()->items.size(), 2U);
    EXPECT_EQ(binding.get(u"Parent").toObject(), book);
    EXPECT_EQ(textOf(book.get(u"Properties", u"Cover").toObject().get(u"Description")), "Binary PNG");
}

TEST_F(Elements, NothingIsKeptAliveByTheRepository) {
    const std::int64_t before = automation::NativeObject::liveCount();
    {
        const Object book = makeBook(u"Emma", u"b");
        const Object wrote = link(makeAuthor(u"Austen", u"a"), book, u"l");
        static_cast<void>(namesOf(book.get(u"Properties")));
        static_cast<void>(namesOf(repository_.get(u"MetaNodes")));
        EXPECT_GT(automation::NativeObject::liveCount(), before);
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

TEST_F(Elements, TypesThatTellHowTheyAreEditedStoreTextsAndIntegers) {
    const Object book = repository_.get(u"MetaNodes", u"Book").toObject();
    book.call(u"MakeMetaProperty", u"Blurb", u"MultiLine", u"", Value(), u"Cover");
    book.call(u"MakeMetaProperty", u"Back", u"Colour", u"", Value(), u"Cover");
    book.call(u"MakeMetaProperty", u"Scan", u"File");
    book.call(u"MakeMetaProperty", u"Folder", u"Directory");
    const Object emma = makeBook(u"Emma", u"b1");
    emma.call(u"SetProperty", u"Blurb", u"two\nlines");
    emma.call(u"SetProperty", u"Back", u"255");
    emma.call(u"SetProperty", u"Scan", u"/tmp/a.png");
    emma.call(u"SetProperty", u"Folder", u"/tmp");
    reopen();
    const Object again = extension(u"Book").item(u"b1").toObject();
    EXPECT_EQ(textOf(again.get(u"Blurb")), "two\nlines");
    EXPECT_EQ(*again.get(u"Back").getIf<std::int32_t>(), 255);
    EXPECT_EQ(textOf(again.get(u"Scan")), "/tmp/a.png");
    EXPECT_EQ(textOf(again.get(u"Folder")), "/tmp");
    EXPECT_TRUE(again.call(u"Search", u"LINES").toBoolean());
    const Object blurb = again.get(u"Properties").toObject().item(u"Blurb").toObject();
    EXPECT_EQ(textOf(blurb.get(u"Category")), "Cover");
    EXPECT_EQ(textOf(blurb.get(u"datatype")), "MultiLine");
    EXPECT_EQ(errorOf([&] { again.put(u"Back", u"blue"); }).number(), 13);
}

}  // namespace
}  // namespace quorel::repository::testing
