// The format descriptor, the table of types and formats as text.
#include <iocv/iocv.h>

namespace {

TEST(VeltFormat, CutsNumericWidthsTo40) {
  struct Case {
    VELT_Format::FormatType type;
    int width;
    int decimals;
    int stored_width;
    int stored_decimals;
  };
  constexpr Case kCases[] = {
      {VELT_Format::F, 50, 2, 40, 2},    {VELT_Format::A, 50, 0, 50, 0},
      {VELT_Format::AHEX, 41, 0, 41, 0}, {VELT_Format::F, 40, 2, 40, 2},
      {VELT_Format::F, 70000, 2, 40, 2}, {VELT_Format::A, 65540, 0, 4, 0},
      {VELT_Format::A, -1, 0, 65535, 0}, {VELT_Format::F, 8, 256, 8, 0},
      {VELT_Format::F, 65536, 1, 0, 1},  {VELT_Format::F, 8, -1, 8, 255},
  };
  for (const Case& c : kCases) {
    const VELT_Format format(c.type, c.width, c.decimals);
    EXPECT_EQ(format.TypeEx(), c.type);
    EXPECT_EQ(format.Width(), c.stored_width) << c.type << " " << c.width;
    EXPECT_EQ(format.Decimals(), c.stored_decimals) << c.type << " " << c.decimals;
  }
}

TEST(VeltFormat, OnlyTheWidthSetterCuts) {
  VELT_Format format(VELT_Format::A, 50, 0);
  EXPECT_TRUE(format.IsString());
  format.Type(VELT_Format::F);
  EXPECT_EQ(format.Width(), 50);
  EXPECT_FALSE(format.IsString());
  format.Width(50);
  EXPECT_EQ(format.Width(), 40);
}

TEST(FormatText, ReadsAndPrints) {
  struct Case {
    const char* text;
    int type;
    int width;
    int decimals;
    const char* printed;
  };
  constexpr Case kCases[] = {
      {"F8.2", 5, 8, 2, "F8.2"},
      {"f8", 5, 8, 0, "F8"},
      {"F8.0", 5, 8, 0, "F8"},
      {"dollar10.2", 4, 10, 2, "DOLLAR10.2"},
      {"A20", 1, 20, 0, "A20"},
      {"a32767", 1, 32767, 0, "A32767"},
      {"ahex4", 2, 4, 0, "AHEX4"},
      {"DATETIME23.2", 22, 23, 2, "DATETIME23.2"},
      {"PIB4", 9, 4, 0, "PIB4"},
      {"PIBHEX4", 7, 4, 0, "PIBHEX4"},
      {"pk3.1", 10, 3, 1, "PK3.1"},
      {"40:12.2", 40, 12, 2, "40:12.2"},
      {"UNUSED4012.2", 40, 12, 2, "40:12.2"},
      {"85:8.2", 85, 8, 2, "85:8.2"},
      {"1:8", 1, 8, 0, "A8"},
      {"255:8", 255, 8, 0, "255:8"},
      {"MULT-PUN3", 18, 3, 0, "MULT-PUN3"},
      {"F40.40", 5, 40, 40, "F40.40"},
  };
  for (const Case& c : kCases) {
    const iocv::FormatReading reading = iocv::format_from_text(c.text);
    ASSERT_TRUE(reading) << c.text << ": " << reading.error;
    EXPECT_EQ(reading.format.TypeEx(), c.type) << c.text;
    EXPECT_EQ(reading.format.Width(), c.width) << c.text;
    EXPECT_EQ(reading.format.Decimals(), c.decimals) << c.text;
    EXPECT_EQ(iocv::format_to_text(reading.format), c.printed);
  }
}

TEST(FormatText, SaysWhatIsWrong) {
  struct Case {
    const char* text;
    const char* error;
  };
  constexpr Case kCases[] = {
      {"", "a format is missing"},
      {"G8.2", "unknown format name in \"G8.2\""},
      {"8.2", "unknown format name in \"8.2\""},
      {"FX8", "unknown format name in \"FX8\""},
      {"300:8", "unknown format name in \"300:8\""},
      {":8", "unknown format name in \":8\""},
      {"0:8", "unknown format name in \"0:8\""},
      {"256:8", "unknown format name in \"256:8\""},
      {"-40:8", "unknown format name in \"-40:8\""},
      {"40x:8", "unknown format name in \"40x:8\""},
      {"99999999999:8", "unknown format name in \"99999999999:8\""},
      {"~8", "unknown format name in \"~8\""},
      {"F", "width is missing in \"F\""},
      {"F.2", "width is missing in \"F.2\""},
      {"40:", "width is missing in \"40:\""},
      {"F0", "width out of range in \"F0\": 1 to 40"},
      {"F41", "width out of range in \"F41\": 1 to 40"},
      {"F99999999999", "width out of range in \"F99999999999\": 1 to 40"},
      {"A32768", "width out of range in \"A32768\": 1 to 32767"},
      {"A8.2", "a string format has no decimals: \"A8.2\""},
      {"F8.", "decimals are missing in \"F8.\""},
      {"F8.-1", "decimals are missing in \"F8.-1\""},
      {"F8.41", "decimals out of range in \"F8.41\": 0 to 40"},
      {"F8.99999999999", "decimals out of range in \"F8.99999999999\": 0 to 40"},
      {"F8.2x", "unexpected \"x\" at the end of \"F8.2x\""},
      {"F8 ", "unexpected \" \" at the end of \"F8 \""},
  };
  for (const Case& c : kCases) {
    const iocv::FormatReading reading = iocv::format_from_text(c.text);
    EXPECT_FALSE(reading) << c.text;
    EXPECT_EQ(reading.error, c.error);
    EXPECT_EQ(iocv::format_to_text(reading.format), "F8.2");
  }
}

TEST(FormatTable, HoldsThe45Types) {
  ASSERT_EQ(iocv::format_table().size(), 45U);
  EXPECT_EQ(iocv::format_info(5)->name, "F");
  EXPECT_EQ(iocv::format_info(18)->name, "MULT-PUN");
  EXPECT_EQ(iocv::format_info(45)->name, "UNUSED45");
  EXPECT_EQ(iocv::format_info(0), nullptr);
  EXPECT_EQ(iocv::format_info(46), nullptr);
}

}  // namespace
