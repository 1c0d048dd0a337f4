// The table of a host's own formatters.
#include <iocv/host.h>

#include <bit>

namespace {

static_assert(sizeof(ObsFormatter) == sizeof(void*));
static_assert(sizeof(ObsFormatterVector) == 2 * sizeof(void*));
static_assert(!std::is_copy_constructible_v<ObsFormatterVector>);
static_assert(!std::is_copy_assignable_v<ObsFormatterVector>);

// Notes its number when it is deleted.
class Noted : public ObsFormatter {
 public:
  Noted(int number, std::vector<int>& deleted) : number_(number), deleted_(deleted) {}
  ~Noted() override { deleted_.push_back(number_); }

 private:
  int number_;
  std::vector<int>& deleted_;
};

class Fixed : public ObsFormatter {
 public:
  int Get(OBS* value, char* text, unsigned width, unsigned decimals) const override {
    value->number = 12.5;
    text[0] = static_cast<char>('0' + width);
    text[1] = static_cast<char>('0' + decimals);
    return 0;
  }
};

TEST(ObsFormatter, AnswersThatItHasNoConverterUnlessOverridden) {
  OBS value = {.number = 1.5};
  char text[2] = {'a', 'b'};
  EXPECT_EQ(ObsFormatter().Get(&value, text, 2, 1), 1105);
  EXPECT_EQ(value.number, 1.5);
  EXPECT_EQ(std::string(text, 2), "ab");
  EXPECT_EQ(ObsFormatter().Get(nullptr, nullptr, 0, 0), 1105);
  std::vector<int> deleted;
  EXPECT_EQ(Noted(1, deleted).Get(&value, text, 2, 1), 1105);
  EXPECT_EQ(Fixed().Get(&value, text, 2, 1), 0);
  EXPECT_EQ(value.number, 12.5);
  EXPECT_EQ(std::string(text, 2), "21");
}

// The slot that a virtual function has, as the platform's interface encodes it.
template <class Member>
std::intptr_t slot(Member member) {
  return (std::bit_cast<std::array<std::intptr_t, 2>>(member)[0] - 1) /
         static_cast<std::intptr_t>(sizeof(void*));
}

TEST(ObsFormatter, VirtualFunctionsKeepTheirSlotsBehindTheTwoDestructors) {
  using ConstIndex = ObsFormatter* const& (ObsFormatterVector::*)(int) const;
  using Index = ObsFormatter*& (ObsFormatterVector::*)(int);
  EXPECT_EQ(slot(&ObsFormatter::Get), 2);
  EXPECT_EQ(slot<ConstIndex>(&ObsFormatterVector::operator[]), 2);
  EXPECT_EQ(slot<Index>(&ObsFormatterVector::operator[]), 3);
}

TEST(ObsFormatterVector, ReadingAMissingSlotIsNullAndDoesNotGrowTheTable) {
  const ObsFormatterVector table;
  EXPECT_EQ(table[5], nullptr);
  EXPECT_EQ(table[std::numeric_limits<int>::max()], nullptr);
  // One answer for all missing slots, of all tables.
  EXPECT_EQ(&table[0], &table[5]);
  const ObsFormatterVector other;
  EXPECT_EQ(&table[0], &other[7]);
}

TEST(ObsFormatterVector, WritingGrowsItByNullSlots) {
  std::vector<int> deleted;  // outlives the table
  ObsFormatterVector table;
  const ObsFormatterVector& read = table;
  ObsFormatter* const* missing = &read[6];
  EXPECT_EQ(table[5], nullptr);
  // Slots 0 to 5 exist now and lie side by side, slot 6 does not.
  for (int type = 0; type <= 5; ++type) {
    EXPECT_EQ(read[type], nullptr);
    EXPECT_EQ(&read[type], &read[0] + type);
    EXPECT_EQ(&table[type], &read[type]);
  }
  EXPECT_EQ(&read[6], missing);

  auto* formatter = new Noted(5, deleted);
  table[5] = formatter;
  EXPECT_EQ(read[5], formatter);
  EXPECT_EQ(read[4], nullptr);
  EXPECT_EQ(table[40], nullptr);
  EXPECT_EQ(read[5], formatter);  // growth keeps what is there
}

TEST(ObsFormatterVector, DeletesWhatItHoldsByIndexAndNothingThatWasReplaced) {
  std::vector<int> deleted;
  Noted replaced(99, deleted);
  {
    ObsFormatterVector table;
    table[7] = nullptr;
    table[3] = new Noted(3, deleted);
    table[0] = &replaced;
    table[0] = new Noted(0, deleted);
    EXPECT_TRUE(deleted.empty());
  }
  EXPECT_EQ(deleted, (std::vector<int>{0, 3}));
  { const ObsFormatterVector empty; }
}

TEST(ObsFormatterVectorDeathTest, NegativeTypesFailTheAssertion) {
  ObsFormatterVector table;
  const ObsFormatterVector& read = table;
  constexpr const char* kMessage =
      "^backend/iocv/ObsFormatter: operator\\[\\]: Assertion `0 <= type' failed\\.\n$";
  EXPECT_DEATH(table[-1], kMessage);
  EXPECT_DEATH(read[-1], kMessage);
  EXPECT_DEATH(read[std::numeric_limits<int>::min()], kMessage);
  EXPECT_EQ(table[0], nullptr);
}

}  // namespace
