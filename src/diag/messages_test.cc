// The message file reader: sections found, filled, numbered and released.
#include "diag/messages.h"

#include <gtest/gtest.h>

#include "common/session.h"
#include "support/ladder_builder.h"
#include "support/seqmsg_fixtures.h"

namespace rungc {
namespace {

using testing::MessageFile;
using testing::TempProject;
using Texts = std::vector<std::string>;

class MessagesTest : public ::testing::Test {
 protected:
  MessagesTest() { session_.work_dir = platform::WorkDir(project_.dir()); }

  int Load(std::string_view key, const MessageFile& file, std::string_view language = "ING") {
    project_.WriteFile("MESSAG." + std::string(language), file.Text());
    return LoadModuleMessages(session_, key, language);
  }
  const MessageTable& Table(std::string_view section) {
    return *FindMessageTable(session_, section);
  }

  TempProject project_;
  CompileSession session_;
};

TEST_F(MessagesTest, MissingSectionIsFilledWithStars) {
  MessageFile file;
  file.Section(21).Entry(1, "Transfer").Section(23).Entry(1, "Message one").Entry(2, "two");
  file.Section(24).Entry(1, "W1").Entry(2, "W2").Section(25).Entry(1, "A1");
  ASSERT_EQ(Load("COMP", file), 0);
  EXPECT_EQ(Table("MSG_TRA"), Texts{"Transfer"});
  EXPECT_EQ(Table("MESSAG"), (Texts{"Message one", "two"}));
  EXPECT_EQ(Table("WCMP_WARN"), (Texts{"W1", "W2"}));
  EXPECT_EQ(Table("WANA_ERRS"), Texts{"A1"});
  EXPECT_EQ(Table("WCMP_ERRS"), Texts(72, "*****"));
  EXPECT_FALSE(session_.messages.file.is_open());
}

TEST_F(MessagesTest, EntryNumbersBridgeOneGapAndStopAtARestart) {
  struct Case {
    std::vector<int> numbers;
    Texts expected;
  };
  const Case cases[] = {
      {{1, 2, 4}, {"t1", "t2", "*****", "t4"}},
      // Each gap is bridged by a single "*****": the text of 5 becomes entry 4.
      {{1, 2, 5, 6}, {"t1", "t2", "*****", "t5", "*****", "t6"}},
      {{1, 2, 3, 1, 2}, {"t1", "t2", "t3"}},
      {{2, 3}, {"*****", "t2", "t3"}},
      {{}, {}},
  };
  for (const Case& c : cases) {
    MessageFile file;
    file.Section(1);
    for (int n : c.numbers) file.Entry(n, "t" + std::to_string(n));
    ASSERT_EQ(Load("TERMO", file), 0);
    EXPECT_EQ(Table("TITOLI"), c.expected) << ::testing::PrintToString(c.numbers);
  }
}

TEST_F(MessagesTest, EntryTextRunsFromTheFourthCharacter) {
  MessageFile file;
  file.Section(1).Line("1: Start  ").Line(" 2 x").Line("3").Line("junk");
  ASSERT_EQ(Load("TERMO", file), 0);
  EXPECT_EQ(Table("TITOLI"), (Texts{"Start  ", "x", ""}));
}

TEST_F(MessagesTest, HeadersAndKeysDecideTheLoad) {
  MessageFile entry_file;
  entry_file.Section(1).Entry(1, "Title");
  EXPECT_EQ(Load("TERMO", MessageFile(testing::kOlderMessageFileHeader).Section(1).Entry(1, "Old")),
            0);
  EXPECT_EQ(Table("TITOLI"), Texts{"Old"});
  EXPECT_EQ(Load("TERMO", MessageFile("- KORVA   1994       SEQ             ;")), -1);
  EXPECT_EQ(Load("NOKEY", entry_file), -1);
  EXPECT_FALSE(session_.messages.file.is_open());
  EXPECT_EQ(Load("TERMO", entry_file, "ENG"), -1);
}

TEST_F(MessagesTest, ScanLimitStopsTheSearchAtOnce) {
  // TITOLI may pass over no other marker: "#B02" before it ends the search.
  MessageFile file;
  file.Section(2).Entry(1, "choice").Section(1).Entry(1, "Title");
  ASSERT_EQ(Load("TERMO", file), 0);
  EXPECT_EQ(Table("TITOLI"), Texts{"*****"});
}

TEST_F(MessagesTest, SectionBeforeItsPlaceIsFoundAfterARewind) {
  // DUMP loads AVVISO (#B13), MSG_STA (#B19), MSG_DU (#B22): the search for #B19 meets the end
  // of the file and starts again from line 2, where #B22 stands.
  MessageFile file;
  file.Section(22).Entry(1, "dump").Section(13).Entry(1, "notice");
  ASSERT_EQ(Load("DUMP", file), 0);
  EXPECT_EQ(Table("AVVISO"), Texts{"notice"});
  EXPECT_EQ(Table("MSG_STA"), Texts(13, "*****"));
  EXPECT_EQ(Table("MSG_DU"), Texts{"dump"});
}

TEST_F(MessagesTest, WithoutAFileNaroListsTheLanguages) {
  project_.WriteFile("MESSAG.DEU", MessageFile().Text());
  project_.WriteFile("messag.spa", MessageFile(testing::kOlderMessageFileHeader).Text());
  project_.WriteFile("MESSAG.FRA", "- KORVA   1994       STA             ;\r\n");
  EXPECT_EQ(LoadModuleMessages(session_, "NARO", "ITA"), 2);
  EXPECT_EQ(session_.messages.languages[0].view(), "DEU");
  EXPECT_EQ(session_.messages.languages[1].view(), "SPA");
  EXPECT_EQ(LoadModuleMessages(session_, "COMP", "ITA"), -1);
}

TEST_F(MessagesTest, WithoutAnyFileNaroFails) {
  EXPECT_EQ(LoadModuleMessages(session_, "NARO", "ITA"), -1);
  EXPECT_EQ(session_.messages.language_count, 0);
}

TEST_F(MessagesTest, ReleaseFreesTheCompilerTablesOnly) {
  MessageFile file;
  file.Section(13).Entry(1, "notice").Section(22).Entry(1, "dump");
  ASSERT_EQ(Load("DUMP", file), 0);
  ASSERT_EQ(Load("COMP", file), 0);
  ReleaseMessageTables(session_);
  for (std::string_view name : FindModuleKey("COMP")->sections) EXPECT_TRUE(Table(name).empty());
  EXPECT_TRUE(Table("MSG_DU").empty());
  EXPECT_EQ(Table("AVVISO"), Texts{"notice"});
}

}  // namespace
}  // namespace rungc
