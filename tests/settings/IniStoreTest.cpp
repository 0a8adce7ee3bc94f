#include <gtest/gtest.h>

#include <ostream>
#include <random>

#include "settings/IniStore.h"
#include "support/FullDisk.h"
#include "support/TempFolder.h"

namespace ferolin {

void PrintTo(const IniRecord& record, std::ostream* out) {
  *out << "{" << testing::PrintToString(record.Comments) << ", '" << record.Commented << "', "
       << testing::PrintToString(record.Section) << ", " << testing::PrintToString(record.Key)
       << ", " << testing::PrintToString(record.Value) << "}";
}

namespace {

using testing_support::FullDisk;
using testing_support::TempFolder;
using Records = std::vector<IniRecord>;

constexpr const char* FILE_NAME = "settings.ini";

class IniStoreTest : public testing::Test {
 protected:
  /// The records of a file with this text.
  Records Parse(std::string_view text) {
    folder.Write(FILE_NAME, text);
    EXPECT_TRUE(store.Load(FileName()));
    return store.GetRecords();
  }

  /// What a save writes now.
  std::string Saved() {
    EXPECT_TRUE(store.Save(FileName()));
    return folder.Read(FILE_NAME);
  }

  std::string Value(std::string_view key, std::string_view section) const {
    return store.GetValue(key, section);
  }
  void Set(std::string_view key, std::string_view value, std::string_view section) {
    store.SetValue(key, value, section);
  }

  std::string FileName() const { return folder.Path(FILE_NAME); }

  TempFolder folder;
  IniStore store;
};

// ---- Reading ----

TEST_F(IniStoreTest, HeadersAndKeysBecomeRecordsInFileOrder) {
  EXPECT_EQ((Records{{"", ' ', "SMS", "", ""},
                     {"", ' ', "SMS", "Interval", "5"},
                     {"", ' ', "SMS", "Text", "hello"},
                     {"", ' ', "Events", "", ""},
                     {"", ' ', "Events", "Limit1", "60"}}),
            Parse("[SMS]\nInterval=5\nText=hello\n[Events]\nLimit1=60\n"));
}

TEST_F(IniStoreTest, KeysAboveTheFirstHeaderHaveNoSection) {
  EXPECT_EQ((Records{{"", ' ', "", "a", "1"}, {"", ' ', "S", "", ""}, {"", ' ', "S", "b", "2"}}),
            Parse("a=1\n[S]\nb=2\n"));
  EXPECT_EQ("1", Value("a", ""));
}

TEST_F(IniStoreTest, LinesMayEndInCrLfAndTheLastOneNeedsNoEnd) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", ' ', "S", "a", "1"}, {"", ' ', "S", "b", "2"}}),
            Parse("[S]\r\na=1\r\nb=2"));
}

TEST_F(IniStoreTest, BlanksAroundALineAreRemoved) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", ' ', "S", "a", "1"}}),
            Parse("\t [S] \r\n \t a=1 \t\n"));
}

TEST_F(IniStoreTest, BlankLinesAreSkipped) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", ' ', "S", "a", "1"}}),
            Parse("\n  \n\t\r\n[S]\n\na=1\n\n"));
}

TEST_F(IniStoreTest, SpacesAroundTheEqualsSignBelongToKeyAndValue) {
  EXPECT_EQ((IniRecord{"", ' ', "S", "key ", " value"}), Parse("[S]\nkey = value\n").at(1));
  EXPECT_EQ(" value", Value("key ", "S"));
  EXPECT_EQ("", Value("key", "S"));
}

TEST_F(IniStoreTest, ValueKeepsEverythingAfterTheFirstEqualsSign) {
  EXPECT_EQ((IniRecord{"", ' ', "S", "Text", "a=b==c"}), Parse("[S]\nText=a=b==c\n").at(1));
}

TEST_F(IniStoreTest, ValueMayBeEmpty) {
  EXPECT_EQ((IniRecord{"", ' ', "S", "Text", ""}), Parse("[S]\nText=\n").at(1));
}

TEST_F(IniStoreTest, SectionNameLiesBetweenTheFirstOpeningAndTheNextClosingBracket) {
  EXPECT_EQ((Records{{"", ' ', " a b ", "", ""}}), Parse("x[ a b ]y]z\n"));
}

TEST_F(IniStoreTest, BracketInAValueMakesTheLineAHeader) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", ' ', "y", "", ""}, {"", ' ', "y", "z", "1"}}),
            Parse("[S]\nk=x[y]\nz=1\n"));
}

TEST_F(IniStoreTest, TextIsTakenAsBytes) {
  const std::string russian = "\xD1\xEA\xEE\xF0\xEE\xF1\xF2\xFC";
  EXPECT_EQ((IniRecord{"", ' ', "S", "Text", russian}), Parse("[S]\nText=" + russian + "\n").at(1));
  EXPECT_EQ(" [S]\n Text=" + russian + "\n", Saved());
}

// ---- Comments ----

TEST_F(IniStoreTest, CommentLinesBelongToTheRecordBelow) {
  EXPECT_EQ((Records{{"# one\n; two\n", ' ', "S", "", ""},
                     {"#three\n", ' ', "S", "a", "1"},
                     {"", ' ', "S", "b", "2"}}),
            Parse("# one\n ; two \n[S]\n#three\na=1\nb=2\n"));
}

TEST_F(IniStoreTest, CommentsWaitAcrossBlankLines) {
  EXPECT_EQ((Records{{"# one\n# two\n", ' ', "S", "", ""}}), Parse("# one\n\n# two\n\n[S]\n"));
}

TEST_F(IniStoreTest, LoneCommentCharacterIsAComment) {
  EXPECT_EQ((Records{{"#\n;\n", ' ', "S", "", ""}}), Parse("#\n;\n[S]\n"));
}

TEST_F(IniStoreTest, CommentedOutKeyIsKeptAndFound) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", '#', "S", "a", "1"}, {"", ';', "S", "b", "2"}}),
            Parse("[S]\n#a=1\n; b=2\n"));
  EXPECT_EQ("1", Value("a", "S"));
  EXPECT_EQ("2", Value("b", "S"));
  EXPECT_EQ(" [S]\n#a=1\n;b=2\n", Saved());
}

TEST_F(IniStoreTest, CommentedOutHeaderStartsItsSectionAllTheSame) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", '#', "T", "", ""}, {"", ' ', "T", "a", "1"}}),
            Parse("[S]\n# [T]\na=1\n"));
}

TEST_F(IniStoreTest, OnlyTheFirstCommentCharacterIsTaken) {
  EXPECT_EQ((Records{{"", '#', "", "#a", "1"}}), Parse("##a=1\n"));
}

TEST_F(IniStoreTest, CommentAboveACommentedOutKeyStaysAboveIt) {
  EXPECT_EQ((Records{{"; why\n", '#', "", "a", "1"}}), Parse("; why\n#a=1\n"));
}

TEST_F(IniStoreTest, CommentsAtTheEndAreLostAtTheNextSave) {
  Parse("# top\n[S]\na=1\n# bottom\n; more\n");
  EXPECT_EQ("# top\n [S]\n a=1\n", Saved());
}

// ---- Lines that are nothing ----

TEST_F(IniStoreTest, LineThatIsNothingBecomesAnEmptyHeader) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", ' ', "", "", ""}, {"", ' ', "S", "a", "1"}}),
            Parse("[S]\nnothing\na=1\n"));
  EXPECT_EQ(" [S]\n []\n a=1\n", Saved());
}

TEST_F(IniStoreTest, LineThatIsNothingIsDroppedWhileCommentsWait) {
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"# waits\n", ' ', "S", "a", "1"}}),
            Parse("[S]\n# waits\nnothing\na=1\n"));
}

TEST_F(IniStoreTest, LineWithoutAKeyIsWrittenBackAsItsSectionsHeader) {
  EXPECT_EQ((IniRecord{"", ' ', "S", "", "value"}), Parse("[S]\n=value\n").at(1));
  EXPECT_EQ(" [S]\n [S]\n", Saved());
}

// ---- Looking up ----

TEST_F(IniStoreTest, MissingKeysReadAsEmpty) {
  Parse("[S]\na=1\n");
  EXPECT_EQ("", Value("b", "S"));
  EXPECT_EQ("", Value("a", "T"));
  EXPECT_EQ("", Value("a", ""));
}

TEST_F(IniStoreTest, NamesAreComparedExactly) {
  Parse("[Sms]\nText=x\n");
  EXPECT_EQ("", Value("Text", "SMS"));
  EXPECT_EQ("", Value("text", "Sms"));
  EXPECT_EQ("x", Value("Text", "Sms"));
}

TEST_F(IniStoreTest, FirstOfTwoEqualKeysCounts) {
  Parse("[S]\na=1\n[T]\na=3\n[S]\na=2\n");
  EXPECT_EQ("1", Value("a", "S"));
  EXPECT_EQ("3", Value("a", "T"));
}

TEST_F(IniStoreTest, PresenceIsToldApartFromEmptiness) {
  Parse("[S]\na=\n");
  EXPECT_TRUE(store.HasValue("a", "S"));
  EXPECT_FALSE(store.HasValue("b", "S"));
  EXPECT_FALSE(store.HasValue("a", "T"));
}

// ---- Setting ----

TEST_F(IniStoreTest, ExistingKeyIsChangedInPlace) {
  Parse("# note\n[S]\n# why\na=1\nb=2\n");
  Set("a", "7", "S");
  EXPECT_EQ("# note\n [S]\n# why\n a=7\n b=2\n", Saved());
}

TEST_F(IniStoreTest, CommentedOutKeyStaysCommentedOutWhenSet) {
  Parse("[S]\n;a=1\n");
  Set("a", "2", "S");
  EXPECT_EQ(" [S]\n;a=2\n", Saved());
}

TEST_F(IniStoreTest, OnlyTheFirstOfTwoEqualKeysIsSet) {
  Parse("[S]\na=1\na=2\n");
  Set("a", "3", "S");
  EXPECT_EQ(" [S]\n a=3\n a=2\n", Saved());
}

TEST_F(IniStoreTest, KeyOfANewSectionGoesToTheEndWithItsHeader) {
  Parse("[S]\na=1\n");
  Set("b", "2", "T");
  EXPECT_EQ(" [S]\n a=1\n [T]\n b=2\n", Saved());
}

TEST_F(IniStoreTest, NewKeysGoToTheTopOfTheirSectionNewestFirst) {
  Parse("[S]\na=1\n[T]\nz=1\n");
  Set("b", "2", "S");
  Set("c", "3", "S");
  EXPECT_EQ(" [S]\n c=3\n b=2\n a=1\n [T]\n z=1\n", Saved());
}

TEST_F(IniStoreTest, NewKeyGoesBelowTheFirstOfTwoEqualHeaders) {
  Parse("[S]\na=1\n[S]\nb=2\n");
  Set("c", "3", "S");
  EXPECT_EQ(" [S]\n c=3\n a=1\n [S]\n b=2\n", Saved());
}

TEST_F(IniStoreTest, NewKeyWithoutASectionGoesBelowTheFirstKeyOfThatKind) {
  Parse("a=1\nb=2\n[S]\n");
  Set("c", "3", "");
  EXPECT_EQ(" a=1\n c=3\n b=2\n [S]\n", Saved());
}

TEST_F(IniStoreTest, EmptyStoreTakesTheFirstKey) {
  Parse("");
  Set("Limit1", "60", "Events");
  EXPECT_EQ((Records{{"", ' ', "Events", "", ""}, {"", ' ', "Events", "Limit1", "60"}}),
            store.GetRecords());
}

TEST_F(IniStoreTest, SettingWritesNothingToDisk) {
  Parse("[S]\na=1\n");
  Set("a", "2", "S");
  EXPECT_EQ("[S]\na=1\n", folder.Read(FILE_NAME));
}

// ---- Round trips ----

TEST_F(IniStoreTest, WrittenFileReadsBackIntoTheSameRecords) {
  Parse("# head\n[S]\na = 1 \n#b=2\n; note\nText=x=y\n\n[T]\nc=\n");
  Set("new", "v", "S");
  Set("k", "v", "U");
  const Records before = store.GetRecords();
  ASSERT_EQ(9U, before.size());
  ASSERT_TRUE(store.Save(FileName()));
  ASSERT_TRUE(store.Load(FileName()));
  EXPECT_EQ(before, store.GetRecords());
}

TEST_F(IniStoreTest, ActiveLinesAreWrittenBehindOneSpace) {
  Parse("# note\n[S]\na=1\n;b=2\n#[T]\nc=3\n");
  EXPECT_EQ("# note\n [S]\n a=1\n;b=2\n#[T]\n c=3\n", Saved());
}

TEST_F(IniStoreTest, ValueWithABracketIsWrittenAsItIsAndComesBackAsAHeader) {
  Parse("[S]\nb=2\n");
  Set("a", "x[y]", "S");
  EXPECT_EQ(" [S]\n a=x[y]\n b=2\n", Saved());
  ASSERT_TRUE(store.Load(FileName()));
  EXPECT_EQ((Records{{"", ' ', "S", "", ""}, {"", ' ', "y", "", ""}, {"", ' ', "y", "b", "2"}}),
            store.GetRecords());
}

TEST_F(IniStoreTest, LoadReplacesTheContent) {
  Parse("[S]\na=1\n");
  EXPECT_EQ((Records{{"", ' ', "T", "", ""}, {"", ' ', "T", "b", "2"}}), Parse("[T]\nb=2\n"));
}

TEST_F(IniStoreTest, LargeFileIsReadWhole) {
  std::string text = "[S]\n";
  for (int number = 0; number < 3000; ++number) {
    text += "Key" + std::to_string(number) + "=" + std::to_string(number * 7) + "\n";
  }
  EXPECT_EQ(3001U, Parse(text).size());
  EXPECT_EQ("0", Value("Key0", "S"));
  EXPECT_EQ("20993", Value("Key2999", "S"));
}

// ---- Files that are not there or cannot be written ----

TEST_F(IniStoreTest, MissingFileIsCreatedEmpty) {
  Parse("[S]\na=1\n");
  EXPECT_TRUE(store.Load(folder.Path("other.ini")));
  EXPECT_TRUE(store.GetRecords().empty());
  EXPECT_TRUE(folder.Has("other.ini"));
  EXPECT_EQ("", folder.Read("other.ini"));
}

TEST_F(IniStoreTest, FileThatCannotBeCreatedLeavesTheStoreEmpty) {
  EXPECT_FALSE(store.Load(folder.Path("missing/settings.ini")));
  EXPECT_TRUE(store.GetRecords().empty());
  Set("a", "1", "S");
  EXPECT_EQ("1", Value("a", "S"));
}

TEST_F(IniStoreTest, FolderIsNoSettingsFile) {
  folder.MakeFolder(FILE_NAME);
  EXPECT_FALSE(store.Load(FileName()));
  EXPECT_TRUE(store.GetRecords().empty());
}

TEST_F(IniStoreTest, CreateTruncatesWhatWasThere) {
  folder.Write(FILE_NAME, "[S]\na=1\n");
  EXPECT_TRUE(store.Create(FileName()));
  EXPECT_EQ("", folder.Read(FILE_NAME));
}

TEST_F(IniStoreTest, CreateReportsAnUnwritableFolder) {
  EXPECT_FALSE(store.Create(folder.Path("missing/settings.ini")));
  EXPECT_FALSE(store.Create("/proc/settings.ini"));
}

TEST_F(IniStoreTest, SaveReportsAnUnwritableFolder) {
  Parse("[S]\na=1\n");
  EXPECT_FALSE(store.Save(folder.Path("missing/settings.ini")));
  EXPECT_FALSE(store.Save("/proc/settings.ini"));
  EXPECT_EQ("1", Value("a", "S"));
}

TEST_F(IniStoreTest, SaveLeavesOnlyTheSettingsFileBehind) {
  Parse("[S]\na=1\n");
  Saved();
  EXPECT_EQ(1, folder.CountFiles());
}

TEST_F(IniStoreTest, SaveWritesInPlaceWhereNoOtherFileCanBeMade) {
  Parse("[S]\na=1\nb=2\n");
  std::filesystem::create_directory(FileName() + ".new");
  Set("a", "3", "S");
  EXPECT_EQ(" [S]\n a=3\n b=2\n", Saved());
}

TEST_F(IniStoreTest, FullDiskLeavesTheOldFileWhole) {
  const std::string old = "[S]\na=1\n";
  Parse(old);
  Set("Text", std::string(200, 'x'), "S");
  bool saved = true;
  {
    const FullDisk fullDisk(100);
    saved = store.Save(FileName());
  }
  EXPECT_FALSE(saved);
  EXPECT_EQ(old, folder.Read(FILE_NAME));
  EXPECT_EQ(1, folder.CountFiles());
}

/// The battery ran out between the removal of the old file and the naming of the new one.
TEST_F(IniStoreTest, InterruptedSaveIsTakenUpAtTheNextLoad) {
  Parse("[S]\na=1\n");
  Saved();
  folder.Write("settings.ini.new", " [S]\n a=2\n");
  std::filesystem::remove(FileName());
  ASSERT_TRUE(store.Load(FileName()));
  EXPECT_EQ("2", Value("a", "S"));
  EXPECT_EQ(" [S]\n a=2\n", folder.Read(FILE_NAME));
}

/// The battery ran out while the new file was being written.
TEST_F(IniStoreTest, HalfWrittenSaveIsNotTaken) {
  folder.Write(FILE_NAME, " [S]\n a=1\n");
  folder.Write("settings.ini.new", " [S]\n a");
  ASSERT_TRUE(store.Load(FileName()));
  EXPECT_EQ("1", Value("a", "S"));
  Set("a", "3", "S");
  EXPECT_EQ(" [S]\n a=3\n", Saved());
  EXPECT_EQ(1, folder.CountFiles());
}

// ---- Numbers ----

TEST_F(IniStoreTest, NumbersAreDecimal) {
  Parse("[S]\na=-12\nb=16777215\n");
  EXPECT_EQ(-12, store.GetNumber("a", "S", 7));
  EXPECT_EQ(16777215, store.GetNumber("b", "S", 7));
  store.SetNumber("a", -5, "S");
  EXPECT_EQ("-5", Value("a", "S"));
}

TEST_F(IniStoreTest, MissingAndEmptyNumbersAreTheCallers) {
  Parse("[S]\na=\n");
  EXPECT_EQ(7, store.GetNumber("a", "S", 7));
  EXPECT_EQ(7, store.GetNumber("b", "S", 7));
}

// ---- Anything at all ----

/// Whatever a file held at first, saving and loading it a second time changes nothing.
TEST_F(IniStoreTest, RandomFilesAreReadAndSettle) {
  constexpr std::string_view LETTERS = "ab= \t[]#;\r\n\n\n\v\x01\xFF";
  std::mt19937 random(20);
  for (int round = 0; round < 100; ++round) {
    std::string text;
    for (unsigned length = random() % 200; length > 0; --length) {
      text += round % 4 == 0 ? static_cast<char>(random()) : LETTERS[random() % LETTERS.size()];
    }
    Parse(text);
    ASSERT_TRUE(store.Save(FileName()));
    ASSERT_TRUE(store.Load(FileName()));
    const Records once = store.GetRecords();
    ASSERT_TRUE(store.Save(FileName()));
    ASSERT_TRUE(store.Load(FileName()));
    ASSERT_EQ(once, store.GetRecords()) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace ferolin
