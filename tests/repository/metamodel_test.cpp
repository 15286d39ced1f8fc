#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {
namespace {

using Strings = std::vector<std::string>;

using MetaModel = LibraryTest;

TEST_F(MetaModel, CollectionsAreReadByNameByIndexAndInOrder) {
    EXPECT_EQ(repository_.get(u"MetaNodes").toObject().get(u"Count").toInteger(), 2);
    EXPECT_EQ(namesOf(repository_.get(u"MetaNodes")), (Strings{"Book", "Author"}));
    EXPECT_EQ(textOf(repository_.get(u"MetaNodes", u"Author").toObject().get(u"name")), "Author");
    EXPECT_EQ(textOf(repository_.get(u"MetaNodes", 1).toObject().get(u"name")), "Book");
    EXPECT_EQ(textOf(repository_.get(u"MetaNodes").toObject().item(2.0)), "Author");
    EXPECT_EQ(namesOf(repository_.get(u"MetaLinks")), (Strings{"Author.Wrote.Book"}));
}

TEST_F(MetaModel, AnUnknownNameOrIndexIsErrorNineAndNamesIt) {
    const auto error = errorOf([&] { repository_.call(u"MetaNodes", u"Buch"); });
    EXPECT_EQ(error.number(), 9);
    EXPECT_EQ(error.description(), u"There is no meta node named 'Buch'");
    EXPECT_EQ(error.source(), u"QuorelRepository");
    EXPECT_EQ(errorOf([&] { repository_.call(u"MetaNodes", u"book"); }).number(), 9) << "names are exact";
    EXPECT_EQ(errorOf([&] { repository_.call(u"MetaNodes", 0); }).number(), 9);
    EXPECT_EQ(errorOf([&] { repository_.call(u"MetaNodes", 3); }).number(), 9);
    EXPECT_EQ(errorOf([&] { repository_.call(u"MetaLinks", u"x"); }).description(),
              u"There is no meta link named 'x'");
}

TEST_F(MetaModel, TheDefaultMemberOfTheRepositoryFindsMetaObjects) {
    EXPECT_EQ(repository_.item(u"Book").toObject(), repository_.get(u"MetaNodes", u"Book").toObject());
    EXPECT_EQ(repository_.item(u"Author.Wrote.Book").toObject(), repository_.get(u"MetaLinks", 1).toObject());
    EXPECT_EQ(errorOf([&] { static_cast<void>(repository_.item(u"x")); }).number(), 9);
}

TEST_F(MetaModel, AMetaLinkKnowsItsEndsAndMetaNodesTheirLinks) {
    const Object wrote = repository_.get(u"MetaLinks", 1).toObject();
    const Object author = repository_.get(u"MetaNodes", u"Author").toObject();
    const Object book = repository_.get(u"MetaNodes", u"Book").toObject();
    EXPECT_EQ(wrote.get(u"source").toObject(), author);
    EXPECT_EQ(wrote.get(u"target").toObject(), book);
    EXPECT_EQ(textOf(wrote.get(u"sourcename")), "Author");
    EXPECT_EQ(textOf(wrote.get(u"targetname")), "Book");
    EXPECT_EQ(wrote.get(u"Parent").toObject(), repository_);
    EXPECT_EQ(namesOf(author.get(u"outgoing")), (Strings{"Author.Wrote.Book"}));
    EXPECT_EQ(author.get(u"incoming").toObject().get(u"Count").toInteger(), 0);
    EXPECT_EQ(namesOf(book.get(u"incoming")), (Strings{"Author.Wrote.Book"}));
    EXPECT_EQ(book.get(u"incoming", u"Author.Wrote.Book").toObject(), wrote);
    EXPECT_EQ(errorOf([&] { book.call(u"outgoing", u"Author.Wrote.Book"); }).number(), 9);
}

TEST_F(MetaModel, PropertiesTellNameDataTypeDescriptionAndValues) {
    const Object properties = repository_.get(u"MetaNodes", u"Book").toObject().get(u"Properties").toObject();
    EXPECT_EQ(namesOf(properties),
              (Strings{"Pages", "Subtitle", "Price", "InPrint", "Published", "Binding", "Cover"}));
    EXPECT_EQ(properties.get(u"Count").toInteger(), 7);
    const Object binding = properties.item(u"binding").toObject();
    EXPECT_EQ(textOf(binding.get(u"datatype")), "Enumeration");
    const Value values = binding.get(u"Values");
    ASSERT_NE(values.getIf<automation::Array>(), nullptr);
    ASSERT_EQ(values.getIf<automation::Array>()->items.size(), 2U);
    EXPECT_EQ(textOf(values.getIf<automation::Array>()->items[1]), "Paperback");
    EXPECT_EQ(textOf(properties.item(u"Subtitle").toObject().get(u"Description")),
              "The text below the title");
    EXPECT_EQ(binding.get(u"Parent").toObject(), repository_.get(u"MetaNodes", u"Book").toObject());
    EXPECT_EQ(binding, properties.item(6).toObject()) << "one definition is one object";
    EXPECT_EQ(errorOf([&] { static_cast<void>(properties.item(u"Weight")); }).number(), 9);
}

TEST_F(MetaModel, AWrongPropertyDefinitionIsRefusedWithTheReason) {
    const Object book = repository_.get(u"MetaNodes", u"Book").toObject();
    EXPECT_EQ(errorOf([&] { book.call(u"MakeMetaProperty", u"pages", u"String"); }).number(), 457);
    EXPECT_EQ(errorOf([&] { book.call(u"MakeMetaProperty", u"", u"String"); }).number(), 5);
    EXPECT_EQ(
        errorOf([&] { book.call(u"MakeMetaProperty", u"X", u"Text"); }).description(),
        u"'Text' is no data type; there are String, Integer, Double, Boolean, Date, Enumeration, Binary, "
        u"MultiLine, Colour, File, Directory");
    EXPECT_EQ(errorOf([&] { book.call(u"MakeMetaProperty", u"X", u"Enumeration"); }).number(), 5);
    EXPECT_EQ(errorOf([&] { book.call(u"MakeMetaProperty", u"X", u"String", u"", u"a,b"); }).number(), 5);
}

TEST_F(MetaModel, ClashingAndEmptyNamesGiveAReadableError) {
    EXPECT_EQ(errorOf([&] { repository_.call(u"MakeMetaNode", u"Book"); }).description(),
              u"There is already a meta node named 'Book'");
    EXPECT_EQ(errorOf([&] { repository_.call(u"MakeDynamicMetaClass", u"Book", u""); }).number(), 457);
    EXPECT_EQ(errorOf([&] { repository_.call(u"MakeDynamicMetaClass", u"", u""); }).description(),
              u"A meta node needs a name");
    EXPECT_EQ(errorOf([&] {
                  repository_.call(u"MakeMetaLink", u"Author.Wrote.Book", u"Author", u"Book");
              }).number(),
              457);
    EXPECT_EQ(errorOf([&] { repository_.call(u"MakeMetaLink", u"L", u"Autor", u"Book"); }).number(), 9);
    EXPECT_EQ(errorOf([&] { repository_.call(u"MakeMetaLink", u"L", repository_, u"Book"); }).number(), 13);
}

TEST_F(MetaModel, ADynamicMetaClassIsMadeAndDeleted) {
    const Object made = repository_.call(u"MakeDynamicMetaClass", u"Shelf", u"Holds books").toObject();
    EXPECT_TRUE(made.get(u"IsDynamic").toBoolean());
    EXPECT_FALSE(made.get(u"IsPersistent").toBoolean());
    EXPECT_EQ(textOf(made.get(u"Description")), "Holds books");
    EXPECT_EQ(repository_.get(u"MetaNodes", u"Shelf").toObject(), made);
    repository_.call(u"DeleteDynamicMetaClass", u"Shelf");
    EXPECT_EQ(errorOf([&] { repository_.call(u"MetaNodes", u"Shelf"); }).number(), 9);
    EXPECT_EQ(errorOf([&] { made.call(u"name"); }).description(),
              u"The meta object has been removed from the repository");
}

TEST_F(MetaModel, ADynamicMetaAssocIsMadeFromItsThreePartName) {
    const Object made =
        repository_.call(u"MakeDynamicMetaAssoc", u"Book.Quotes.Book", u"Citation").toObject();
    EXPECT_EQ(textOf(made.get(u"name")), "Book.Quotes.Book");
    EXPECT_EQ(textOf(made.get(u"sourcename")), "Book");
    EXPECT_EQ(textOf(made.get(u"targetname")), "Book");
    EXPECT_TRUE(made.get(u"IsDynamic").toBoolean());
    repository_.call(u"DeleteDynamicMetaAssoc", u"Book.Quotes.Book");
    EXPECT_EQ(repository_.get(u"MetaLinks").toObject().get(u"Count").toInteger(), 1);
}

TEST_F(MetaModel, PointsInMetaNodeNamesDoNotConfuseComposedNames) {
    repository_.call(u"MakeMetaNode", u"Book.Rare");
    const Object made = repository_.call(u"MakeDynamicMetaAssoc", u"Book.Rare.Is.Like.Book", u"").toObject();
    EXPECT_EQ(textOf(made.get(u"sourcename")), "Book.Rare");
    EXPECT_EQ(textOf(made.get(u"targetname")), "Book");
}

TEST_F(MetaModel, AComposedNameThatNamesNoMetaNodesIsRefused) {
    for (const char16_t* name :
         {u"", u"Wrote", u"Book.Book", u"Book..Book", u"Buch.Has.Book", u"Book.Has.Buch"})
        EXPECT_EQ(errorOf([&] { repository_.call(u"MakeDynamicMetaAssoc", name, u""); }).number(), 5)
            << automation::toUtf8(name);
    EXPECT_EQ(repository_.get(u"MetaLinks").toObject().get(u"Count").toInteger(), 1);
}

TEST_F(MetaModel, WhatIsUsedOrStoredIsNotDeleted) {
    EXPECT_EQ(errorOf([&] { repository_.call(u"DeleteDynamicMetaClass", u"Book"); }).description(),
              u"The meta node 'Book' belongs to the stored metamodel and stays");
    repository_.call(u"MakeDynamicMetaClass", u"Shelf", u"");
    repository_.call(u"MakeDynamicMetaAssoc", u"Shelf.Holds.Book", u"");
    EXPECT_EQ(errorOf([&] { repository_.call(u"DeleteDynamicMetaClass", u"Shelf"); }).description(),
              u"The meta node 'Shelf' still has 1 meta link");
    const Object shelf = repository_.call(u"MakeNode", u"Shelf", u"A", u"s1").toObject();
    EXPECT_EQ(errorOf([&] { repository_.call(u"DeleteDynamicMetaClass", u"Shelf"); }).description(),
              u"The meta node 'Shelf' still has 1 instance");
    repository_.call(u"MakeLink", u"Shelf.Holds.Book", u"", u"l1", shelf, makeBook(u"B", u"b1"));
    repository_.call(u"MakeLink", u"Shelf.Holds.Book", u"", u"l2", shelf, makeBook(u"C", u"b2"));
    EXPECT_EQ(
        errorOf([&] { repository_.call(u"DeleteDynamicMetaAssoc", u"Shelf.Holds.Book"); }).description(),
        u"The meta link 'Shelf.Holds.Book' still has 2 instances");
    EXPECT_EQ(errorOf([&] { repository_.call(u"DeleteDynamicMetaAssoc", u"Author.Wrote.Book"); }).number(),
              5);
    EXPECT_EQ(errorOf([&] { repository_.call(u"DeleteDynamicMetaAssoc", u"x"); }).number(), 9);
}

TEST_F(MetaModel, OnlyPersistentDynamicMetaObjectsOutliveTheSession) {
    repository_.call(u"MakeDynamicMetaClass", u"Kept", u"").toObject().put(u"IsPersistent", true);
    repository_.call(u"MakeDynamicMetaClass", u"Gone", u"");
    repository_.call(u"MakeDynamicMetaAssoc", u"Gone.On.Book", u"");
    repository_.call(u"MakeDynamicMetaAssoc", u"Kept.On.Book", u"").toObject().put(u"IsPersistent", true);
    repository_.call(u"MakeDynamicMetaAssoc", u"Book.Passing.Book", u"");
    const Object gone = repository_.call(u"MakeNode", u"Gone", u"", u"g").toObject();
    repository_.call(u"MakeLink", u"Gone.On.Book", u"", u"l", gone, makeBook(u"B", u"b"));
    native_->close();
    reopen();
    EXPECT_EQ(namesOf(repository_.get(u"MetaNodes")), (Strings{"Book", "Author", "Kept"}));
    EXPECT_EQ(namesOf(repository_.get(u"MetaLinks")), (Strings{"Author.Wrote.Book", "Kept.On.Book"}));
    EXPECT_TRUE(repository_.get(u"MetaNodes", u"Kept").toObject().get(u"IsDynamic").toBoolean());
    EXPECT_EQ(extension(u"Book").get(u"Count").toInteger(), 1) << "what it was linked to stays";
}

TEST_F(MetaModel, PersistenceCannotContradictItself) {
    const Object book = repository_.get(u"MetaNodes", u"Book").toObject();
    book.put(u"IsPersistent", true);
    EXPECT_EQ(errorOf([&] { book.put(u"IsPersistent", false); }).number(), 5);
    const Object shelf = repository_.call(u"MakeDynamicMetaClass", u"Shelf", u"").toObject();
    const Object holds = repository_.call(u"MakeDynamicMetaAssoc", u"Shelf.Holds.Book", u"").toObject();
    EXPECT_EQ(errorOf([&] { holds.put(u"IsPersistent", true); }).description(),
              u"'Shelf.Holds.Book' cannot be persistent, for its meta node 'Shelf' is not");
    shelf.put(u"IsPersistent", true);
    holds.put(u"IsPersistent", true);
    EXPECT_TRUE(holds.get(u"IsPersistent").toBoolean());
    EXPECT_EQ(errorOf([&] { shelf.put(u"IsPersistent", false); }).number(), 5);
}

TEST_F(MetaModel, TheRepositoryTellsAndKeepsItsOwnProperties) {
    EXPECT_EQ(textOf(repository_.get(u"name")), "test");
    EXPECT_EQ(textOf(repository_.get(u"RepType")), "Reference");
    EXPECT_EQ(textOf(repository_.get(u"Version")), "1.0");
    EXPECT_EQ(textOf(repository_.get(u"Description")), "");
    repository_.put(u"Description", u"All books");
    repository_.put(u"name", u"Library");
    repository_.put(u"RepType", u"Books");
    repository_.put(u"Version", u"2");
    repository_.call(u"SetProperty", u"Owner", u"The town");
    repository_.call(u"SetProperty", u"NAME", u"Town library");
    reopen();
    EXPECT_EQ(textOf(repository_.get(u"Description")), "All books");
    EXPECT_EQ(textOf(repository_.get(u"name")), "Town library");
    EXPECT_EQ(textOf(repository_.get(u"RepType")), "Books");
    EXPECT_EQ(textOf(repository_.get(u"Version")), "2");
    EXPECT_EQ(textOf(repository_.get(u"Prop_", u"owner")), "The town");
    EXPECT_EQ(repository_.get(u"Properties").toObject().get(u"Count").toInteger(), 5);
    const Object owner = repository_.get(u"Properties", u"Owner").toObject();
    EXPECT_EQ(textOf(owner.get(u"datatype")), "String");
    owner.put(u"Value", u"Nobody");
    EXPECT_EQ(textOf(repository_.call(u"GetProperty", u"Owner")), "Nobody");
    EXPECT_TRUE(repository_.call(u"GetProperty", u"Founder").isEmpty());
}

TEST_F(MetaModel, DescriptionsOfMetaObjectsAreWritten) {
    const Object book = repository_.get(u"MetaNodes", u"Book").toObject();
    EXPECT_EQ(textOf(book.get(u"Description")), "A printed work");
    book.put(u"Description", u"A work");
    reopen();
    EXPECT_EQ(textOf(repository_.get(u"MetaNodes", u"Book").toObject().get(u"Description")), "A work");
}

}  // namespace
}  // namespace quorel::repository::testing
