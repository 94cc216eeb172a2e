#include "igs/file/igsDate.h"

#include <gtest/gtest.h>

#include "file/section_reading.h"

namespace {

TEST(Date, IsTodayUnlessATextIsGiven) {
  const igs_test::FixedClock clock;
  EXPECT_EQ(igsDate().date_string(), "20261121.123059");
  EXPECT_EQ(igsDate().check(), 1);
  EXPECT_EQ(igsDate("yesterday").date_string(), "yesterday");
  EXPECT_EQ(igsDate("yesterday").check(), 0);
}

TEST(Date, TwoDigitYearsEndWithTheCurrentYear) {
  const igs_test::FixedClock clock;
  struct Case {
    const char* text;
    int year;
  };
  for (const Case& c : {Case{"990102.030405", 1999},
                        {"120102.030405", 2012},
                        {"000102.030405", 2000},
                        {"260102.030405", 2026},
                        {"270102.030405", 1927},
                        {"19990102.030405", 1999},
                        {"00260102.030405", 26},
                        {"20990102.030405", 2099}}) {
    utDateTime date{};
    ASSERT_EQ(igsDate::decode_date_string(c.text, date), 1) << c.text;
    EXPECT_EQ(date.year, c.year) << c.text;
    EXPECT_EQ(date.month, 1) << c.text;
    EXPECT_EQ(date.day, 2) << c.text;
    EXPECT_EQ(date.hour, 3) << c.text;
    EXPECT_EQ(date.minute, 4) << c.text;
    EXPECT_EQ(date.second, 5) << c.text;
  }
}

TEST(Date, ChecksFormRangesAndCalendar) {
  const igs_test::FixedClock clock;
  struct Case {
    const char* text;
    int valid;
  };
  const Case cases[] = {{"20261231.235959", 1},
                        {"19800101.000000", 1},
                        {"800101.000000", 1},
                        {"261231.235959", 1},
                        {"20270101.000000", 0},
                        {"19791231.235959", 0},
                        {"790101.000000", 0},
                        {"270101.000000", 0},
                        {"20200229.000000", 1},
                        {"20000229.000000", 1},
                        {"20210229.000000", 0},
                        {"20210228.000000", 1},
                        {"20210430.000000", 1},
                        {"20210431.000000", 0},
                        {"20210132.000000", 0},
                        {"20210100.000000", 0},
                        {"20211301.000000", 0},
                        {"20210001.000000", 0},
                        {"20210101.240000", 0},
                        {"20210101.006000", 0},
                        {"20210101.000060", 0},
                        {"", 0},
                        {".", 0},
                        {"20210101", 0},
                        {"20210101.00000", 0},
                        {"210101.0000000", 0},
                        {"20210101.0000000", 0},
                        {"202101010.00000", 0},
                        {"20210101:000000", 0},
                        {"2021 101.000000", 0},
                        {"+210101.000000", 0},
                        {"2021010a.000000", 0},
                        {"zzzzzzzzzzzzzzz", 0},
                        {"**0103.144123", 0},
                        {"20210101.00000\n", 0}};
  for (const Case& c : cases) EXPECT_EQ(igsDate::check_date_string(c.text), c.valid) << c.text;
  EXPECT_EQ(igsDate::check_date_string(utString("20210101") + char(0) + "000000"), 0);
}

TEST(Date, CenturiesAreLeapYearsEveryFourHundredYears) {
  EXPECT_EQ(igsDate::check_day_against_month(29, 2, 1900), 0);
  EXPECT_EQ(igsDate::check_day_against_month(29, 2, 2000), 1);
  EXPECT_EQ(igsDate::check_day_against_month(1, 0, 2000), 0);
  EXPECT_EQ(igsDate::check_day_against_month(1, 13, 2000), 0);
}

TEST(Date, AFailedDecodeLeavesTheResultAlone) {
  utDateTime date{1, 2, 3, 4, 5, 6};
  EXPECT_EQ(igsDate::decode_date_string("20210101.00000x", date), 0);
  EXPECT_EQ(date.year, 1);
  EXPECT_EQ(date.second, 6);
}

}  // namespace
