#include "command_fixture.h"

#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;

class ContourUsage : public ContourCommandTest {};

TEST_F(ContourUsage, HelpOfEveryOperationHasAnExample) {
  for (const std::string operation :
       {"",       "info",    "near",  "inside", "intersect", "split", "reduce",   "transform",
        "part",   "section", "trim",  "extend", "offset",    "blend", "equalise", "same",
        "circle", "ellipse", "biarc", "xml",    "text",      "clean", "unite",    "subtract"}) {
    const Outcome help = Vanzet("contour " + operation + " --help");
    EXPECT_EQ(help.status, 0) << operation;
    EXPECT_THAT(help.out, HasSubstr("Example:\n  vanzet contour " + operation)) << operation;
  }
}

TEST_F(ContourUsage, WrongUsageHasTheStatusTwo) {
  for (const char* arguments : {"",
                                "dance slot.txt",
                                "info slot.txt extra",
                                "near slot.txt",
                                "near slot.txt 1",
                                "near slot.txt 1 2 3",
                                "near slot.txt one 2",
                                "near slot.txt nan 2",
                                "near slot.txt 1,5 2",
                                "near slot.txt 1e99 2",
                                "intersect slot.txt",
                                "intersect - -",
                                "split slot.txt --tolerance 0",
                                "split slot.txt --tolerance -1",
                                "split slot.txt --tolerance inf",
                                "split slot.txt --tolerance",
                                "transform slot.txt --move 5",
                                "transform slot.txt --move 5,x",
                                "transform slot.txt --mirror z",
                                "transform slot.txt --scale 0",
                                "transform slot.txt --scale -1",
                                "transform slot.txt --turn east",
                                "part slot.txt 1 2 3",
                                "circle 0 0",
                                "circle 0 0 5 9",
                                "info slot.txt --unit ell",
                                "info slot.txt --join -1",
                                "info slot.txt --contour x"}) {
    const Outcome run = Vanzet(std::string("contour ") + arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_NE(run.err, "") << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

TEST_F(ContourUsage, OnlyOneSideOfAnOffset) {
  const Outcome run = Vanzet("contour offset slot.txt 2 --right --outside");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--outside: cannot be given together with --right"));
}

TEST_F(ContourUsage, OptionsForDrawingsAreRefusedForOtherFiles) {
  for (const std::string option : {"--unit inch", "--layer A", "--join 1", "--tolerance 1"}) {
    EXPECT_EQ(Fault("info slot.txt " + option), "vanzet: slot.txt: " + option.substr(0, option.find(' ')) +
                                                    " has no effect, since the file is not a drawing\n");
  }
}

TEST_F(ContourUsage, OutputsWithTheEndingOfAnotherFormAreRefused) {
  EXPECT_THAT(Vanzet("contour info slot.txt --svg x.png").err,
              HasSubstr("--svg: expected a name that ends with .svg, found 'x.png'"));
  EXPECT_THAT(Vanzet("contour offset slot.txt 2 --dxf x.svg").err,
              HasSubstr("--dxf: expected a name that ends with .dxf, found 'x.svg'"));
  EXPECT_EQ(Vanzet("contour info slot.txt --svg X.SVG").status, 0);
  EXPECT_FALSE(std::filesystem::exists(folder / "x.png"));
}

TEST_F(ContourUsage, BadFilesAreOneLineWithTheirPlaceAndASourceLineWithACaret) {
  WriteBytes(folder / "bad.txt", "k1 e x0 y0\nx1 yy\nek\n");
  EXPECT_EQ(Fault("info bad.txt"), "vanzet: bad.txt:2:5: expected a number, found 'y'\n  x1 yy\n      ^\n");
  WriteBytes(folder / "bad.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\nzero\n");
  EXPECT_EQ(Fault("info bad.dxf"), "vanzet: bad.dxf:8: expected a number, found 'zero'\n");
  EXPECT_EQ(Fault("info none.txt"), "vanzet: none.txt: cannot be read\n");
  EXPECT_EQ(Fault("info ."), "vanzet: .: is a folder\n");
  EXPECT_EQ(Fault("info", "hello\n"),
            "vanzet: standard input:1:1: expected the start of a contour like 'k1 e', found 'hello'\n"
            "  hello\n  ^\n");
  EXPECT_EQ(Fault("info /dev/zero"),
            "vanzet: /dev/zero:1: not a text file: the line has a control character\n");
}

TEST_F(ContourUsage, ResultsThatAreTooLargeAreRefused) {
  EXPECT_THAT(Fault("transform slot.txt --scale 1e6"), HasSubstr("is not within 1e+07 mm"));
  EXPECT_THAT(Fault("circle 9e6 0 2e6"), HasSubstr("is not within 1e+07 mm"));
}

TEST_F(ContourUsage, AFullStandardOutputIsAFault) {
  for (const char* arguments : {"info slot.txt", "split slot.txt", "split slot.txt --json"}) {
    const Outcome run = Vanzet("contour " + std::string(arguments) + " >/dev/full");
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_EQ(run.err, "vanzet: standard output cannot be written\n") << arguments;
  }
}

TEST_F(ContourUsage, NumbersHaveAPointUnderEveryLocale) {
  const std::string german = "LC_ALL=de_DE.UTF-8 LOCPATH='" VANZET_BINARY_DIR "/locales'";
  EXPECT_EQ(Vanzet("contour near slot.txt 5.5 14", german).out, Vanzet("contour near slot.txt 5.5 14").out);
  EXPECT_EQ(Vanzet("contour split slot.txt", german).out, Vanzet("contour split slot.txt").out);
}

}  // namespace
}  // namespace vanzet::test
