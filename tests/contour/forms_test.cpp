#include "contour/contour_file.h"
#include "contour/view.h"
#include "dxf_fixture.h"
#include "support/temporary_folder.h"

/// The forms in which contours leave and come back.
namespace vanzet::contour {
namespace {

constexpr const char* kTwo =
    "k3 e x-20 y10\nx20 y10\ntx20 y-10 x20 y0\nx-20 y-10\ntx-20 y10 x-20 y0\nek\n"
    "k5 e x0 y0\nx8 y2\nax7 y9 x4 y5\nek\n";

class DxfWriterTest : public DxfTest {
 protected:
  static Contours BackFromDxf(const Contours& contours) {
    const auto content = Dxf(DxfForm(contours, "L1"), {});
    if (content) return content->contours;
    ADD_FAILURE() << content.fault().Message();
    return {};
  }
};

TEST_F(DxfWriterTest, ContoursComeBackFromADrawing) {
  for (const char* text : {kTwo, kRoundedSquare, "k1 e x0 y0\nax10 y10 x0 y10\nek\n"}) {
    const Contours contours = Read(text);
    const Contours back = BackFromDxf(contours);
    ASSERT_EQ(back.size(), contours.size());
    for (std::size_t i = 0; i < back.size(); ++i) {
      EXPECT_TRUE(back[i].curve == contours[i].curve) << text;
      EXPECT_EQ(back[i].curve.Closed(), contours[i].curve.Closed());
      EXPECT_NEAR(back[i].curve.area, contours[i].curve.area, 1e-9);
    }
  }
}

TEST_F(DxfWriterTest, ArcsOfMoreThanHalfATurnComeBack) {
  const Contours most = Read("k1 e x10 y0\nax10 y-0.5 x0 y-0.25\nek\n");
  EXPECT_NEAR(BackFromDxf(most)[0].curve.perim, most[0].curve.perim, 1e-6);
}

TEST_F(DxfWriterTest, ATwoSpanContourThatReturnsOnItselfIsClosed) {
  const Contours there = Read("k1 e x0 y0\nx10 y0\nx0 y0\nek\n");
  EXPECT_EQ(BackFromDxf(there)[0].curve.SpanCount(), 2);
}

TEST_F(DxfWriterTest, EverythingIsOnItsLayerInMillimetres) {
  const std::string dxf = DxfForm(Read(kTwo), "RESULT");
  EXPECT_THAT(dxf,
              testing::StartsWith("0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$INSUNITS\n70\n4\n"));
  EXPECT_THAT(dxf, testing::EndsWith("0\nENDSEC\n0\nEOF\n"));
  DxfOptions options;
  options.layer = "result";
  const auto content = Dxf(dxf, options);
  ASSERT_TRUE(content);
  EXPECT_EQ(content->contours.size(), 2U);
}

class XmlFormTest : public ContourTest {
 protected:
  static std::string Refused(const std::string& text) {
    std::istringstream stream(text);
    const auto contours = ReadXml(stream, "c.xml");
    return contours ? "read" : contours.fault().Message();
  }
  static Contours ReadBack(const std::string& text) {
    std::istringstream stream(text);
    const auto contours = ReadXml(stream, "c.xml");
    if (contours) return *contours;
    ADD_FAILURE() << contours.fault().Message();
    return {};
  }

  const Contours two = Read(kTwo);
  const std::string whole = XmlForm(two, XmlKind::kKurve);
};

TEST_F(XmlFormTest, ContoursComeBackWithTheirNumbers) {
  const Contours back = ReadBack(whole);
  ASSERT_EQ(back.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_TRUE(back[i].curve == two[i].curve);
    EXPECT_EQ(back[i].number, two[i].number);
  }
}

TEST_F(XmlFormTest, TheUnitOfTheFileIsTaken) {
  std::string inches = whole;
  inches.replace(inches.find("\"mm\""), 4, "\"inches\"");
  EXPECT_NEAR(ReadBack(inches)[0].curve.perim, two[0].curve.perim * 25.4, 1e-6);
  EXPECT_EQ(geometry::TOLERANCE, 0.005) << "its tolerance is not";
}

TEST_F(XmlFormTest, ContoursWithoutARootOrASystemAreRead) {
  const std::size_t from = whole.find("<KURVE "), to = whole.find("</CONTOURS>");
  EXPECT_EQ(ReadBack(whole.substr(from, to - from)).size(), 2U);
  std::string nameless = whole.substr(from, to - from);
  nameless.replace(nameless.find("name=\"3\""), 8, "name=\"slot\"");
  EXPECT_EQ(ReadBack(nameless)[0].number, 1);
}

TEST_F(XmlFormTest, ElementsThatAreNotContoursAreRefusedWithTheirLine) {
  EXPECT_EQ(Refused(""), "c.xml: has no contour");
  EXPECT_EQ(Refused("<CONTOURS>\n</CONTOURS>\n"), "c.xml: has no contour");
  EXPECT_EQ(Refused("<CONTOURS>\n"), "c.xml:2: the file is cut short: CONTOURS has no end tag");
  EXPECT_EQ(Refused("\n<DRAWING>\n"), "c.xml:2: expected a KURVE, found another element");
  EXPECT_EQ(Refused("<CONTOURS>\n<SYSTEM UNITS=\"feet\" TOLERANCE=\"1\"/>\n"),
            "c.xml:2: the SYSTEM has an unknown unit, or a tolerance that is not above 0");
  EXPECT_EQ(Refused(XmlForm(two, XmlKind::kKurveEx)),
            "c.xml:3: a KURVEEX cannot be read back; only a KURVE can");
  EXPECT_EQ(
      Refused("<KURVE name=\"1\" nVertices=\"1\">\n<SPVERTEX name=\"\" ID=\"\" type=\"LINEAR\">\n<POINT "
              "x=\"1\" y=\"2\"/>\n</SPVERTEX>\n</KURVE>\n"),
      "c.xml:1: the contour has no span");
}

TEST_F(XmlFormTest, AContourThatIsCutShortIsRefusedWithItsLine) {
  const std::size_t second = whole.find("<KURVE name=\"5\"");
  const auto line = 1 + std::count(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(second), '\n');
  EXPECT_EQ(
      Refused(whole.substr(0, second + 200)),
      "c.xml:" + std::to_string(line) + ": the KURVE is cut short, or one of its elements lacks something");
}

TEST_F(XmlFormTest, ArcsAndCoordinatesAreChecked) {
  std::string wrong = whole;
  wrong.replace(wrong.find("centre\" x=\"20\" y=\"0\""), 20, "centre\" x=\"20\" y=\"5\"");
  EXPECT_THAT(Refused(wrong), testing::HasSubstr("c.xml:3: the arc's centre is"));
  std::string large = whole;
  large.replace(large.find("x=\"-20\""), 7, "x=\"1e9\"");
  EXPECT_THAT(Refused(large), testing::HasSubstr("c.xml:3: the coordinate 1e+09 mm is not within"));
}

TEST_F(XmlFormTest, WhateverComesItIsReadOrRefused) {
  for (std::size_t cut = 0; cut < whole.size(); cut += 3) {
    EXPECT_NE(Refused(whole.substr(0, cut)), "");
    std::string changed = whole;
    changed[cut] = static_cast<char>(cut * 37);
    EXPECT_NE(Refused(changed), "");
  }
}

class LibraryTextTest : public ContourTest {
 protected:
  const Contours two = Read(kTwo);
  const test::TemporaryFolder folder;

  std::string Refused(const std::string& name) const {
    const auto contours = ReadLibraryText((folder / name).string());
    return contours ? "read" : contours.fault().text;
  }
};

TEST_F(LibraryTextTest, TheContourFormIsTheSameAsTheStrictOne) {
  const std::string text = LibraryTextForm(two, LibraryText::kContour);
  EXPECT_THAT(text, testing::HasSubstr("rem Area = 1114.16 sq.mm (Clockwise)\nx-20 y10\n"));
  const Contours back = Read(text);
  EXPECT_TRUE(back[0].curve == two[0].curve);
  EXPECT_TRUE(back[1].curve == two[1].curve);
  EXPECT_EQ(geometry::GetUnits(), 0) << "millimetres again";
}

TEST_F(LibraryTextTest, TheOtherFormsAreInMillimetres) {
  EXPECT_THAT(LibraryTextForm(two, LibraryText::kReport),
              testing::AllOf(testing::HasSubstr("# Area = 1114.16 sq.mm (Clockwise)"),
                             testing::HasSubstr("    CW x20     y-10    xc20     yc0      r10")));
  EXPECT_THAT(LibraryTextForm(two, LibraryText::kVertices),
              testing::HasSubstr("contour3.Start(Point(mm(-20), mm(10)));"));
  EXPECT_THAT(LibraryTextForm(two, LibraryText::kSpans), testing::HasSubstr("\tcontour5.Add(spVertex(ACW ,"));
}

TEST_F(LibraryTextTest, TheLibraryReadsOverWhatItDoesNotKnow) {
  test::WriteBytes(folder / "odd.txt", "k1 e x1 y1\nhello\nx5 y1\n\nek\nk9 e\nx3 y4\nek\n");
  const auto contours = ReadLibraryText((folder / "odd.txt").string());
  ASSERT_TRUE(contours);
  ASSERT_EQ(contours->size(), 2U);
  EXPECT_NEAR((*contours)[0].curve.perim, 4, 1e-9);
  EXPECT_NEAR((*contours)[1].curve.perim, 5, 1e-9);
  EXPECT_EQ((*contours)[1].number, 2);
}

TEST_F(LibraryTextTest, InvalidFilesAreRefused) {
  EXPECT_EQ(Refused("missing.txt"), "cannot be read");
  EXPECT_EQ(Refused("."), "cannot be read");
  test::WriteBytes(folder / "empty.txt", "\n\n");
  EXPECT_EQ(Refused("empty.txt"), "has no contour");
  test::WriteBytes(folder / "point.txt", "k1 e x1 y1\nek\n");
  EXPECT_EQ(Refused("point.txt"), "nothing is left of contour 1");
  test::WriteBytes(folder / "arc.txt", "k1 e x0 y0\nax10 y0 x3 y0\nek\n");
  EXPECT_EQ(Refused("arc.txt"),
            "the geometry refuses this: Invalid Geometry - Radii mismatch - SetProperties");
}

class LegendTest : public ContourTest {};

TEST_F(LegendTest, NamesLayersWhenThereAreSeveral) {
  const Contours one = Read(kRoundedSquare), none;
  Drawing drawing;
  drawing.layers.push_back({Drawing::Role::kMain, &one, "contour"});
  EXPECT_EQ(Legend(drawing, 100), "");
  EXPECT_EQ(LegendHeight(drawing), 0);
  drawing.layers.push_back({Drawing::Role::kUnderlay, &none, "nothing"});
  drawing.layers.push_back({Drawing::Role::kUnderlay, &one, ""});
  EXPECT_EQ(LegendHeight(drawing), 0);
  drawing.layers.push_back({Drawing::Role::kOther, &one, "offset"});
  const std::string legend = Legend(drawing, 100);
  EXPECT_THAT(legend,
              testing::AllOf(testing::HasSubstr(">contour</text>"), testing::HasSubstr(">offset</text>"),
                             testing::HasSubstr(StyleOf(Drawing::Role::kOther).colour),
                             testing::Not(testing::HasSubstr("nothing"))));
  EXPECT_GT(LegendHeight(drawing), 30);
  EXPECT_THAT(Svg(drawing), testing::HasSubstr("class=\"legend\""));
}

}  // namespace
}  // namespace vanzet::contour
