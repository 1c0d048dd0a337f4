// The table of statuses: complete, unique, one sentence each.
#include <iocv/status.h>

#include <set>

namespace {

struct Row {
  std::int64_t number;
  const char* name;
  const char* sentence;
};

constexpr Row kRows[] = {
#define ROW(number, name, sentence) {number, #name, sentence},
    IOCV_STATUS_TABLE(ROW)
#undef ROW
};

TEST(StatusTable, NumbersNamesAndSentencesAreUnique) {
  std::set<std::int64_t> numbers;
  std::set<std::string> names;
  std::set<std::string> sentences;
  for (const Row& row : kRows) {
    EXPECT_TRUE(numbers.insert(row.number).second) << row.number;
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_TRUE(sentences.insert(row.sentence).second) << row.sentence;
    EXPECT_STREQ(iocv_status_text(row.number), row.sentence);
  }
}

TEST(StatusTable, HoldsEveryNumberThatAConversionAnswers) {
  const std::set<std::int64_t> expected = {
      608,  1101, 1102, 1103, 1105, 1106, 1109, 1111, 1114, 1115, 1117, 1120, 1121,
      1122, 1123, 1124, 1125, 1128, 1133, 1134, 1136, 1137, 1138, 1139, 1140, 1141,
      1142, 1143, 1144, 1145, 1146, 1147, 1148, 1149, 1151, 1152, 1154, 1155, 1156,
      1158, 1169, 1179, 1189, 1190, 1192, 1193, 1194, 1195, 1196, 1197};
  std::set<std::int64_t> numbers;
  for (const Row& row : kRows) numbers.insert(row.number);
  EXPECT_EQ(numbers, expected);
}

TEST(StatusText, AnswersEveryNumber) {
  EXPECT_STREQ(iocv_status_text(0), "success");
  EXPECT_STREQ(iocv_status_text(1105), "no converter exists for this format type");
  for (const std::int64_t number : {-1L, 1L, 1100L, 1198L, 99999999999L}) {
    EXPECT_STREQ(iocv_status_text(number), "unknown status");
  }
}

}  // namespace
