// Records of files: by length and by line, whatever the size of the blocks.
#include "framing.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "failure.h"
#include "sample.h"

namespace {

using namespace iocv::tool;
using test::Sample;

// Each record as "number@offset:bytes|", and the rest of a longer line as "+rest|".
std::string records_of(std::string_view bytes, Framing framing, std::size_t block) {
  const Sample sample(bytes);
  InputFile file(sample.path());
  RecordReader reader(file, framing, block, block);
  Block records;
  std::string text;
  std::string whole;
  while (reader.next(records)) {
    const std::string_view rest = records.rest_of_line();
    if (!rest.empty()) text += "+" + std::string(rest) + "|";
    whole += rest;
    for (std::size_t i = 0; i < records.count(); ++i) {
      const Record record = records.record(i);
      text += std::to_string(record.number) + "@" + std::to_string(record.offset) + ":" +
              std::string(record.bytes) + "|";
      whole += records.whole(i);
    }
  }
  EXPECT_FALSE(reader.next(records));
  EXPECT_EQ(whole, bytes);
  return text;
}

struct Case {
  std::string_view bytes;
  Framing framing;
  std::string_view records;
};

TEST(Framing, CutsRecordsByLength) {
  constexpr Case kCases[] = {
      {"", {3}, ""},
      {"abc", {3}, "1@0:abc|"},
      {"abcdef", {3}, "1@0:abc|2@3:def|"},
      {"abcdefg", {3}, "1@0:abc|2@3:def|3@6:g|"},
      {"ab", {3}, "1@0:ab|"},
      {"a\nb\n\nc", {3}, "1@0:a\nb|2@3:\n\nc|"},
      {"ab", {1}, "1@0:a|2@1:b|"},
  };
  for (const Case& c : kCases) {
    for (std::size_t block = 1; block < 12; ++block) {
      EXPECT_EQ(records_of(c.bytes, c.framing, block), c.records) << c.bytes << ", " << block;
    }
  }
}

TEST(Framing, CutsRecordsByLine) {
  constexpr Case kCases[] = {
      {"", {}, ""},
      {"abc", {}, "1@0:abc|"},
      {"abc\n", {}, "1@0:abc|"},
      {"abc\nde", {}, "1@0:abc|2@4:de|"},
      {"abc\nde\n", {}, "1@0:abc|2@4:de|"},
      {"\n", {}, "1@0:|"},
      {"\n\na\n", {}, "1@0:|2@1:|3@2:a|"},
      {"a\r\nb\n", {}, "1@0:a\r|2@3:b|"},
      {"a\r\nb\n", {0, true}, "1@0:a|2@3:b|"},
      {"\r\n\r\n", {0, true}, "1@0:|2@2:|"},
      {"a\rb\r\nc\r", {0, true}, "1@0:a\rb|2@5:c\r|"},
      {"a\r\r\n", {0, true}, "1@0:a\r|"},
  };
  for (const Case& c : kCases) {
    for (std::size_t block = 7; block < 20; ++block) {
      EXPECT_EQ(records_of(c.bytes, c.framing, block), c.records) << c.bytes << ", " << block;
    }
  }
}

TEST(Framing, DeliversTheFirstBlockOfALongerLine) {
  constexpr Case kCases[] = {
      {"abcd\nx\n", {}, "1@0:abcd|+\n|2@5:x|"},
      {"abcde\nx\n", {}, "1@0:abcd|+e\n|2@6:x|"},
      {"abcdefghijklmn\nx", {}, "1@0:abcd|+efgh|+ijkl|+mn\n|2@15:x|"},
      {"abcdefghijklmn", {}, "1@0:abcd|+efgh|+ijkl|+mn|"},
      {"abcdefgh", {}, "1@0:abcd|+efgh|"},
      {"x\nabcdefgh\n\n", {}, "1@0:x|2@2:abcd|+efgh|+\n|3@11:|"},
  };
  for (const Case& c : kCases) EXPECT_EQ(records_of(c.bytes, c.framing, 4), c.records) << c.bytes;
}

TEST(Framing, ReadsPipesThatDeliverLittleByLittle) {
  std::FILE* const pipe = ::popen("printf ab; sleep 0.05; printf 'c\\nd'; sleep 0.05; echo", "r");
  ASSERT_NE(pipe, nullptr);
  InputFile file("/dev/fd/" + std::to_string(::fileno(pipe)));
  RecordReader reader(file, {});
  Block records;
  ASSERT_TRUE(reader.next(records));
  ASSERT_EQ(records.count(), 2U);
  EXPECT_EQ(records.record(0).bytes, "abc");
  EXPECT_EQ(records.record(1).bytes, "d");
  ::pclose(pipe);
}

TEST(Framing, TellsAboutFilesThatCannotBeRead) {
  try {
    InputFile file("/nonexistent/a");
    FAIL();
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "cannot open '/nonexistent/a': No such file or directory");
  }
  InputFile directory("/tmp");
  RecordReader reader(directory, {});
  try {
    Block records;
    reader.next(records);
    FAIL();
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "cannot read '/tmp': Is a directory");
  }
}

}  // namespace
