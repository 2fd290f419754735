#include "base/fault_caret.h"

#include <gtest/gtest.h>

namespace vanzet {
namespace {

Fault At(int column, std::string source) {
  Fault fault{"expected a number", "bar.txt", 2, column};
  fault.source = std::move(source);
  return fault;
}

TEST(FaultCaret, IsUnderTheColumn) {
  EXPECT_EQ(CaretText(At(5, "x1 yy")), "  x1 yy\n      ^\n");
  EXPECT_EQ(CaretText(At(1, "x1 yy")), "  x1 yy\n  ^\n");
}

TEST(FaultCaret, IsAfterTheEndOfALineThatIsCutShort) {
  EXPECT_EQ(CaretText(At(4, "x1 ")), "  x1 \n     ^\n");
  EXPECT_EQ(CaretText(At(40, "x1")), "  x1\n    ^\n");
}

TEST(FaultCaret, NeedsALineAndAColumn) {
  EXPECT_EQ(CaretText(At(5, "")), "");
  EXPECT_EQ(CaretText(At(0, "x1 yy")), "");
}

TEST(FaultCaret, FollowsTabs) {
  EXPECT_EQ(CaretText(At(4, "\tx\tyy")), "  \tx\tyy\n  \t \t^\n");
}

TEST(FaultCaret, CountsACharacterOfSeveralBytesOnce) {
  EXPECT_EQ(CaretText(At(9, "größe x")), "  größe x\n        ^\n");
  EXPECT_EQ(CaretText(At(4, "größe x")), "  größe x\n    ^\n") << "in the middle of a character";
}

TEST(FaultCaret, ShowsControlCharacters) {
  EXPECT_EQ(CaretText(At(3,
                         "a\x1b"
                         "b")),
            "  a\\x1bb\n       ^\n");
}

TEST(FaultCaret, ReplacesBytesThatAreNotUtf8) {
  EXPECT_EQ(CaretText(At(3,
                         "\xFC\xFC"
                         "b")),
            "  \xEF\xBF\xBD\xEF\xBF\xBD"
            "b\n    ^\n");
}

TEST(FaultCaret, ShowsOfALongLineThePartAroundTheColumn) {
  const std::string shown(100, 'x');
  EXPECT_EQ(CaretText(At(1, std::string(200, 'x'))), "  " + shown + "...\n  ^\n");
  EXPECT_EQ(CaretText(At(151, std::string(300, 'x'))),
            "  ..." + shown + "...\n     " + std::string(50, ' ') + "^\n");
  EXPECT_EQ(CaretText(At(200, std::string(200, 'x'))),
            "  ..." + shown + "\n     " + std::string(99, ' ') + "^\n");
}

}  // namespace
}  // namespace vanzet
