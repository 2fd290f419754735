#include <gmock/gmock.h>

#include "geometry/forms/wide_text.h"
#include "geometry/support.h"
#include "geometry/text_support.h"
#include "geometry/xml.h"

namespace geometry {
namespace {

using testing::Folder;
using testing::UnitsGuard;
using testing::Wide;

/// A reader of a text.
class Reading {
 public:
  explicit Reading(const std::string& text) : stream_(text), xml(stream_) {}

 private:
  std::istringstream stream_;

 public:
  XmlReader xml;
  std::wstring name;
};

template <class Geometry>
std::string Written(const Geometry& geometry, const wchar_t* name = L"n") {
  std::ostringstream bytes;
  XmlWriter xml(bytes);
  xml.Write(name, geometry);
  return bytes.str();
}

Kurve Slot() {
  Kurve k;
  k.Start(Point(0, 0));
  k.Add(Point(50, 0));
  k.Add(ACW, Point(50, 20), Point(50, 10));
  k.Add(Point(0, 20));
  k.Add(CW, Point(0, 0), Point(0, 10));
  return k;
}

TEST(XmlReader, TheFirstTagDecides) {
  Reading wrong("text <OTHER/>\n<POINT/>\n");
  EXPECT_FALSE(wrong.xml.FindTag(L"POINT"));
  EXPECT_FALSE(wrong.xml.FindTag(L"POINT")) << "it is looked at again";
  EXPECT_TRUE(wrong.xml.FindTag(L"OTHER"));
  EXPECT_TRUE(wrong.xml.FindTag(L"POINT"));
  EXPECT_FALSE(wrong.xml.FindTag(L"POINT")) << "the end";
}

TEST(XmlReader, ANameIsLookedForUpToTheEndOfTheLine) {
  EXPECT_TRUE(Reading("<MIDPOINT/>").xml.FindTag(L"POINT"));
  EXPECT_TRUE(Reading("<KURVEEX/>").xml.FindTag(L"KURVE"));
  EXPECT_FALSE(Reading("<PX POINT/>").xml.FindTag(L"POINT")) << "a false start ends the search";
  EXPECT_FALSE(Reading("<A\nPOINT/>").xml.FindTag(L"POINT"));
  EXPECT_TRUE(Reading("<\"\" POINT/>").xml.FindTag(L"POINT")) << "quotes and blanks are skipped";
  EXPECT_FALSE(Reading("<POIN").xml.FindTag(L"POINT"));
}

TEST(XmlReader, AttributesAreReadInOrder) {
  Reading r("<A i=\" -12mm\" b=\"TRUE\" c=\"true\" d=\"2.5e1\" s=\"two words\"/>\n");
  int i = 0;
  bool b = false;
  bool c = true;
  double d = 0;
  std::wstring s;
  ASSERT_TRUE(r.xml.FindTag(L"A"));
  EXPECT_TRUE(r.xml.Attribute(L"i", i));
  EXPECT_TRUE(r.xml.Attribute(L"b", b));
  EXPECT_TRUE(r.xml.Attribute(L"c", c));
  r.xml.scale = 10;
  EXPECT_TRUE(r.xml.Attribute(L"d", d, true));
  EXPECT_TRUE(r.xml.Attribute(L"s", s));
  EXPECT_EQ(i, -12);
  EXPECT_TRUE(b);
  EXPECT_FALSE(c) << "only TRUE is";
  EXPECT_EQ(d, 250);
  EXPECT_EQ(s, L"two words");
  EXPECT_FALSE(r.xml.Attribute(L"i", i)) << "it has gone by";
  EXPECT_FALSE(r.xml.Attribute(L"b", b));
  EXPECT_FALSE(r.xml.Attribute(L"d", d, false));
}

TEST(XmlReader, AnAttributeThatIsNotThereLeavesThePlace) {
  Reading r("<A x=\"1\" y=\"2\"/>\n");
  double y = 0;
  ASSERT_TRUE(r.xml.FindTag(L"A"));
  EXPECT_FALSE(r.xml.Attribute(L"z", y, false));
  EXPECT_TRUE(r.xml.Attribute(L"x", y, false));
  EXPECT_FALSE(r.xml.Attribute(L"x", y, false));
  EXPECT_TRUE(r.xml.Attribute(L"y", y, false));
  EXPECT_EQ(y, 2);
}

TEST(XmlReader, TextThatIsNotANumberIsZero) {
  Reading r("<A i=\"ten\" d=\"\" e=\"1e999\"/>\n");
  int i = 5;
  double d = 5;
  double e = 5;
  ASSERT_TRUE(r.xml.FindTag(L"A"));
  EXPECT_TRUE(r.xml.Attribute(L"i", i));
  EXPECT_TRUE(r.xml.Attribute(L"d", d, false));
  EXPECT_TRUE(r.xml.Attribute(L"e", e, false));
  EXPECT_EQ(i, 0);
  EXPECT_EQ(d, 0);
  EXPECT_EQ(e, 0);
}

TEST(XmlReader, AValueWithoutAnEndIsNotRead) {
  Reading r("<A s=\"cut short");
  std::wstring s;
  ASSERT_TRUE(r.xml.FindTag(L"A"));
  EXPECT_FALSE(r.xml.Attribute(L"s", s));
}

TEST(XmlReader, EndsAnElementAtTheNextSlash) {
  Reading r("<A/>\n<B>\n</B>\n<C/>");
  EXPECT_TRUE(r.xml.EndElement());
  EXPECT_TRUE(r.xml.FindTag(L"B"));
  EXPECT_EQ(r.xml.Line(), 2);
  EXPECT_TRUE(r.xml.EndElement());
  EXPECT_TRUE(r.xml.FindTag(L"C"));
  EXPECT_TRUE(r.xml.EndElement());
  EXPECT_FALSE(r.xml.EndElement());
  EXPECT_FALSE(Reading("text /").xml.EndElement());
}

TEST(XmlReader, APointNeedsBothCoordinates) {
  Point p;
  Reading whole("<POINT name=\"a\" x=\"1.5\" y=\"-2\"/>\n");
  whole.xml.scale = 2;
  EXPECT_TRUE(whole.xml.Read(whole.name, p));
  EXPECT_EQ(whole.name, L"a");
  EXPECT_TRUE(p.ok);
  EXPECT_EQ(p.x, 3);
  EXPECT_EQ(p.y, -4);
  Reading nameless("<POINT x=\"1\" y=\"2\"/>\n");
  EXPECT_TRUE(nameless.xml.Read(nameless.name, p));
  Reading half("<POINT name=\"a\" x=\"1\"/>\n");
  EXPECT_FALSE(half.xml.Read(half.name, p));
  EXPECT_FALSE(p.ok);
}

TEST(XmlReader, AMissingPointTakesTheNextEndWithIt) {
  Reading r("<CIRCLE/>\n<POINT name=\"b\" x=\"1\" y=\"2\"/>\n<POINT name=\"c\" x=\"3\" y=\"4\"/>\n");
  Point p;
  EXPECT_FALSE(r.xml.Read(r.name, p));
  EXPECT_TRUE(r.xml.Read(r.name, p));
  EXPECT_EQ(r.name, L"b");
}

TEST(XmlReader, AContourComesBackWithoutItsIds) {
  Kurve k = Slot();
  k.Replace(1, LINEAR, Point(50, 0), Point(0, 0), 7);
  Reading r(Written(k, L"slot"));
  Kurve read;
  read.Start(Point(9, 9));
  EXPECT_TRUE(r.xml.Read(r.name, read));
  EXPECT_EQ(r.name, L"slot");
  EXPECT_TRUE(read == k);
  spVertex v;
  read.Get(1, v);
  EXPECT_EQ(v.ID, 0U);
}

TEST(XmlReader, AContourLosesItsMatrix) {
  Kurve k = Slot();
  k.Translate(5, 6);
  k.IsUnit();
  Reading r(Written(k));
  Kurve read;
  read.Translate(1, 1);
  EXPECT_TRUE(r.xml.Read(r.name, read));
  EXPECT_TRUE(read.unit);
  EXPECT_EQ(read.e[3], 0);
  EXPECT_EQ(read.nVertices, 5);
}

TEST(XmlReader, AMatrixOfTheOtherFormIsTakenOver) {
  std::string elements;
  for (int i = 0; i < 12; ++i) {
    elements += " M" + std::to_string(i) + "=\"" +
                std::to_string(i == 0              ? -1
                               : i == 5 || i == 10 ? 1
                               : i == 3            ? 7
                                                   : 0) +
                "\"";
  }
  Reading r("<KURVE name=\"\" nVertices=\"1\">\n<MATRIX" + elements +
            "/>\n<SPVERTEX name=\"\" ID=\"3\" type=\"LINEAR\">\n<POINT name=\"\" x=\"1\" y=\"2\"/>\n"
            "</SPVERTEX>\n</KURVE>\n");
  r.xml.scale = 1000;
  Kurve k;
  EXPECT_TRUE(r.xml.Read(r.name, k));
  EXPECT_EQ(k.e[0], -1);
  EXPECT_EQ(k.e[3], 7) << "not scaled";
  EXPECT_FALSE(k.unit);
  EXPECT_TRUE(k.mirrored);
  EXPECT_EQ(k.nVertices, 1);
}

TEST(XmlReader, AContourWithoutAMatrixIsRead) {
  Reading r(
      "<KURVE name=\"a\" nVertices=\"1\">\n<SPVERTEX name=\"\" ID=\"\" type=\"LINEAR\">\n"
      "<POINT name=\"\" x=\"1\" y=\"2\"/>\n</SPVERTEX>\n</KURVE>\n<POINT name=\"z\" x=\"0\" y=\"0\"/>\n");
  Kurve k;
  EXPECT_TRUE(r.xml.Read(r.name, k));
  EXPECT_EQ(k.nVertices, 1);
  Point p;
  EXPECT_TRUE(r.xml.Read(r.name, p)) << "the element was ended";
}

TEST(XmlReader, AContourNeedsItsHeadAndAllItsVertices) {
  Kurve k = Slot();
  const std::string whole = Written(k);
  for (const char* text : {"", "<OTHER/>", "<KURVE nVertices=\"0\"/>\n", "<KURVE name=\"a\"/>\n"}) {
    Reading r(text);
    EXPECT_FALSE(r.xml.Read(r.name, k)) << text;
    EXPECT_EQ(k.nVertices, 0) << "cleared";
  }
  const std::size_t lastVertex = whole.rfind("<SPVERTEX");
  Reading cut(whole.substr(0, lastVertex) + "</KURVE>\n");
  EXPECT_FALSE(cut.xml.Read(cut.name, k));
  EXPECT_EQ(k.nVertices, 4) << "those before it";
  Reading none("<KURVE name=\"\" nVertices=\"0\">\n</KURVE>\n");
  EXPECT_TRUE(none.xml.Read(none.name, k));
  Reading endless("<KURVE name=\"\" nVertices=\"2147483647\">\n</KURVE>\n");
  EXPECT_FALSE(endless.xml.Read(endless.name, k));
}

TEST(XmlReader, TheWriterDeclaresOneVertexForAnEmptyContour) {
  Reading r(Written(Kurve()));
  Kurve k;
  EXPECT_FALSE(r.xml.Read(r.name, k));
}

TEST(XmlReader, NullSpansAreKept) {
  Kurve k;
  k.Start(Point(1, 1));
  k.AddNullSpan();
  k.Add(Point(2, 1));
  Reading r(Written(k));
  Kurve read;
  EXPECT_TRUE(r.xml.Read(r.name, read));
  EXPECT_EQ(read.nVertices, 3);
}

TEST(XmlReader, AWorkingContourComesBackEmpty) {
  KurveEx k{Slot()};
  ASSERT_EQ(k.SpanCount(), 4);
  Reading r(Written(k, L"w"));
  KurveEx read = k;
  EXPECT_TRUE(r.xml.Read(r.name, read));
  EXPECT_EQ(r.name, L"w");
  EXPECT_EQ(read.SpanCount(), 0);
  EXPECT_FALSE(read.start.ok);
  Reading nothing("<KURVE name=\"\" nVertices=\"1\"/>");
  EXPECT_FALSE(nothing.xml.Read(nothing.name, read));
}

TEST(XmlReader, SpansComeBackWithTheirPropertiesAndWithoutIds) {
  for (const Span& span : {Span(Point(1, 2), Point(4, 6), 9), Span(CW, Point(0, 5), Point(5, 0), Point(0, 0)),
                           Span(ACW, Point(5, 0), Point(-5, 0), Point(0, 0))}) {
    const std::string text = Written(span) + Written(Point(7, 8));
    Reading r(text);
    Span read;
    EXPECT_TRUE(r.xml.Read(r.name, read)) << text;
    EXPECT_TRUE(read == span) << text;
    EXPECT_EQ(read.ID, 0U);
    EXPECT_TRUE(read.propertiesSet);
    EXPECT_NEAR(read.length, span.length, 1e-12);
    Point p;
    EXPECT_TRUE(r.xml.Read(r.name, p)) << "the next element is whole";
    EXPECT_EQ(p.x, 7);
  }
}

TEST(XmlReader, RadiusAndLengthAreFoundAfterTheChildren) {
  Reading r(Written(Span(CW, Point(0, 5), Point(5, 0), Point(0, 0))));
  Point p;
  EXPECT_TRUE(r.xml.FindTag(L"SPAN"));
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(r.xml.Read(r.name, p));
  double radius = 0;
  double length = 0;
  EXPECT_TRUE(r.xml.Attribute(L"radius", radius, true));
  EXPECT_TRUE(r.xml.Attribute(L"length", length, true));
  EXPECT_EQ(radius, 5);
  EXPECT_NEAR(length, 2.5 * testing::kPi, 1e-12);
}

TEST(XmlReader, ASpanThatLacksAPartIsNotRead) {
  const std::string whole = Written(Span(CW, Point(0, 5), Point(5, 0), Point(0, 0)));
  const auto isRead = [](const std::string& text) {
    Reading r(text);
    Span s;
    return r.xml.Read(r.name, s);
  };
  const auto without = [&](const std::string& part) {
    std::string text = whole;
    return text.replace(text.find(part), part.size(), "");
  };
  EXPECT_TRUE(isRead(whole));
  for (const char* part : {"<SPAN", "name=\"n\" ", "ID=\"UNMARKED\"", "type=\"CW\""}) {
    EXPECT_FALSE(isRead(without(part))) << part;
  }
  EXPECT_FALSE(isRead(without("<POINT name=\"centre\" x=\"0\" y=\"0\"/>\n")));
  EXPECT_TRUE(isRead(without(" radius=\"5\""))) << "it follows from the points";
  std::string wrong = whole;
  EXPECT_FALSE(isRead(wrong.replace(wrong.find("x=\"5\""), 5, "x=\"9\""))) << "no arc has this centre";
}

TEST(XmlReader, UnknownTypesAreAnticlockwise) {
  Reading r(
      "<SPVERTEX name=\"\" ID=\"ROLL_AROUND RADIUS\" type=\"linear\">\n<POINT name=\"\" x=\"1\" "
      "y=\"2\"/>\n<POINT name=\"centre\" x=\"3\" y=\"4\"/>\n</SPVERTEX>\n");
  spVertex v;
  EXPECT_TRUE(r.xml.Read(r.name, v));
  EXPECT_EQ(v.type, ACW);
  EXPECT_EQ(v.ID, 0U);
  EXPECT_EQ(v.pc.y, 4);
}

TEST(XmlReader, AVertexNeedsItsPoints) {
  spVertex v;
  for (const char* text :
       {"<SPVERTEX name=\"\" ID=\"\" type=\"LINEAR\">\n</SPVERTEX>\n",
        "<SPVERTEX name=\"\" ID=\"\" type=\"CW\">\n<POINT x=\"1\" y=\"1\"/>\n</SPVERTEX>\n"}) {
    Reading r(text);
    EXPECT_FALSE(r.xml.Read(r.name, v)) << text;
  }
}

TEST(XmlReader, ReportsTheNextTagAndItsLine) {
  Reading r("\n<KURVEEX name=\"\"/>\n\n<A>\n</A>\n");
  EXPECT_FALSE(r.xml.NextTagIs(L"KURVE")) << "the whole name counts";
  EXPECT_TRUE(r.xml.NextTagIs(L"KURVEEX"));
  EXPECT_EQ(r.xml.Line(), 2);
  EXPECT_TRUE(r.xml.FindTag(L"KURVEEX")) << "it is still there";
  EXPECT_TRUE(r.xml.NextTagIs(L"A"));
  EXPECT_EQ(r.xml.Line(), 4);
  EXPECT_TRUE(r.xml.FindTag(L"A"));
  EXPECT_FALSE(r.xml.AtEnd());
  EXPECT_TRUE(r.xml.NextTagIs(L"/A"));
  EXPECT_TRUE(r.xml.EndElement());
  EXPECT_FALSE(r.xml.NextTagIs(L"A"));
  EXPECT_TRUE(r.xml.AtEnd());
  EXPECT_EQ(r.xml.Line(), 6);
  Reading back("\n\n<A/>");
  EXPECT_TRUE(back.xml.NextTagIs(L"A"));
  EXPECT_EQ(back.xml.Line(), 3);
  EXPECT_FALSE(back.xml.FindTag(L"B"));
  EXPECT_EQ(back.xml.Line(), 3);
}

TEST(XmlReader, TheLineIsCountedAgainAfterGoingBack) {
  Reading r("<A\n");
  EXPECT_TRUE(r.xml.FindTag(L"A"));
  EXPECT_FALSE(r.xml.EndElement());
  EXPECT_EQ(r.xml.Line(), 2);
  std::wstring s;
  EXPECT_FALSE(r.xml.Attribute(L"s", s));
  EXPECT_EQ(r.xml.Line(), 2);
  Reading two("<A>\n<B>\nx");
  EXPECT_TRUE(two.xml.FindTag(L"A"));
  EXPECT_TRUE(two.xml.NextTagIs(L"B"));
  EXPECT_EQ(two.xml.Line(), 2);
  EXPECT_FALSE(two.xml.FindTag(L"C"));
  EXPECT_EQ(two.xml.Line(), 2);
}

struct SystemCase {
  std::int32_t library;
  const char* file;
  double scale;
};

TEST(XmlReader, TheSystemSetsScaleAndTolerances) {
  // Rows: the library's unit, the file's, and the factor from one to the other.
  for (const SystemCase& row : {SystemCase{0, "mm", 1.0},
                                {1, "mm", 0.03937007874015748},
                                {2, "mm", 0.001},
                                {0, "inches", 25.4},
                                {1, "inches", 1.0},
                                {2, "inches", 0.0254},
                                {0, "metres", 1000.0},
                                {1, "metres", 39.37007874015748},
                                {2, "metres", 1.0}}) {
    const UnitsGuard units(row.library);
    const double tight = TIGHT_TOLERANCE;
    Reading r(std::string("<SYSTEM UNITS=\"") + row.file +
              "\" TOLERANCE=\"0.25\"/>\n<POINT x=\"1\" y=\"2\"/>\n");
    EXPECT_TRUE(r.xml.ReadSystem());
    EXPECT_EQ(r.xml.scale, row.scale) << row.file;
    EXPECT_EQ(TOLERANCE, 0.25 * row.scale);
    EXPECT_EQ(CLOSED_TOLERANCE, TOLERANCE * 10.0);
    EXPECT_EQ(TIGHT_TOLERANCE, tight) << "the rest of the table stays";
    Point p;
    EXPECT_TRUE(r.xml.Read(r.name, p));
    EXPECT_EQ(p.y, 2 * row.scale);
  }
}

TEST(XmlReader, TheToleranceIsScaledByWhatTheReaderHadBefore) {
  const UnitsGuard units(0);
  Reading r("<SYSTEM UNITS=\"mm\" TOLERANCE=\"0.5\"/>\n");
  r.xml.scale = 3;
  EXPECT_TRUE(r.xml.ReadSystem());
  EXPECT_EQ(r.xml.scale, 1);
  EXPECT_EQ(TOLERANCE, 1.5);
}

TEST(XmlReader, MetresComeBackAsInches) {
  const UnitsGuard units(2);
  std::ostringstream bytes;
  {
    XmlWriter xml(bytes, true);
    xml.WriteSystem();
    xml.Write(L"", Point(1, 0));
  }
  Reading r(bytes.str());
  EXPECT_TRUE(r.xml.ReadSystem());
  EXPECT_NEAR(TOLERANCE, 5e-6 * 0.0254, 1e-18);
  Point p;
  EXPECT_TRUE(r.xml.Read(r.name, p));
  EXPECT_NEAR(p.x, 25.4, 1e-12);
}

TEST(XmlReader, ASystemThatMakesNoSenseChangesNothing) {
  const UnitsGuard units(0);
  for (const char* text :
       {"<OTHER/>\n", "<SYSTEM UNITS=\"feet\" TOLERANCE=\"1\"/>\n", "<SYSTEM UNITS=\"mm\"/>\n",
        "<SYSTEM TOLERANCE=\"1\"/>\n", "<SYSTEM UNITS=\"mm\" TOLERANCE=\"nan\"/>\n",
        "<SYSTEM UNITS=\"mm\" TOLERANCE=\"-1\"/>\n", "<SYSTEM UNITS=\"mm\" TOLERANCE=\"0\"/>\n",
        "<SYSTEM UNITS=\"inches\" TOLERANCE=\"1e308\"/>\n"}) {
    Reading r(text);
    r.xml.scale = 7;
    EXPECT_FALSE(r.xml.ReadSystem()) << text;
    EXPECT_EQ(r.xml.scale, 7);
    EXPECT_EQ(TOLERANCE, 0.005);
    EXPECT_EQ(CLOSED_TOLERANCE, 0.05);
  }
}

TEST(XmlReader, LinesMayEndWithTwoCharacters) {
  Reading r(
      "<SPVERTEX name=\"\" ID=\"\" type=\"LINEAR\">\r\n<POINT name=\"\" x=\"1\" "
      "y=\"2\"/>\r\n</SPVERTEX>\r\n");
  spVertex v;
  EXPECT_TRUE(r.xml.Read(r.name, v));
  EXPECT_EQ(v.p.y, 2);
}

struct Shown {
  std::wstring text, title;
  int count = 0;
};
Shown shown;

class XmlReaderMessages : public ::testing::Test {
 protected:
  XmlReaderMessages() {
    shown = {};
    former_ = SetMessageSink([](const std::wstring& text, const std::wstring& title, bool) {
      shown = {text, title, shown.count + 1};
    });
  }
  ~XmlReaderMessages() override { SetMessageSink(former_); }

 private:
  MessageSink former_;
};

TEST_F(XmlReaderMessages, AFileThatCannotBeReadIsReported) {
  const Folder folder;
  int count = 0;
  for (const std::filesystem::path& path :
       {folder / "missing.xml", folder.path(), std::filesystem::path("/dev/zero")}) {
    XmlReader xml(Wide(path));
    EXPECT_FALSE(xml.IsOpen());
    EXPECT_EQ(shown.text, L"Cannot open input XML file - " + Wide(path));
    EXPECT_EQ(shown.title, L"XML error - ");
    EXPECT_EQ(shown.count, ++count);
    Kurve k;
    Point p;
    std::wstring name;
    EXPECT_FALSE(xml.Read(name, k));
    EXPECT_FALSE(xml.Read(name, p));
    EXPECT_FALSE(xml.FindTag(L"A"));
    EXPECT_FALSE(xml.EndElement());
    EXPECT_FALSE(xml.ReadSystem());
    EXPECT_EQ(xml.Line(), 1);
  }
}

TEST_F(XmlReaderMessages, AFileIsReadByItsPath) {
  const Folder folder;
  const std::filesystem::path path = folder / "k.xml";
  {
    XmlWriter xml(Wide(path));
    xml.Write(L"Grüße", Slot());
  }
  XmlReader xml(Wide(path));
  EXPECT_TRUE(xml.IsOpen());
  Kurve k;
  std::wstring name;
  EXPECT_TRUE(xml.Read(name, k));
  EXPECT_EQ(name, L"Grüße");
  EXPECT_TRUE(k == Slot());
  EXPECT_EQ(shown.count, 0);
}

}  // namespace
}  // namespace geometry
