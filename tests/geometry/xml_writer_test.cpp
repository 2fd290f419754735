#include <gmock/gmock.h>

#include "geometry/forms/wide_text.h"
#include "geometry/support.h"
#include "geometry/text_support.h"
#include "geometry/xml.h"

namespace geometry {
namespace {

using testing::Folder;
using testing::ReadBytes;
using testing::ThrownText;
using testing::UnitsGuard;
using testing::Wide;

/// The text that the actions on a writer put into its file.
template <class Action>
std::string Written(Action&& action, bool toMillimetres = false) {
  std::ostringstream bytes;
  {
    XmlWriter xml(bytes, toMillimetres);
    action(xml);
  }
  return bytes.str();
}

struct Shown {
  std::wstring text, title;
  int count = 0;
};
Shown shown;

class XmlMessages : public ::testing::Test {
 protected:
  XmlMessages() {
    shown = {};
    former_ = SetMessageSink([](const std::wstring& text, const std::wstring& title, bool) {
      shown = {text, title, shown.count + 1};
    });
  }
  ~XmlMessages() override { SetMessageSink(former_); }

 private:
  MessageSink former_;
};

TEST(XmlWriter, NestsElementsAndClosesThemByWhatTheyHold) {
  EXPECT_EQ(Written([](XmlWriter& xml) {
              xml.startElement(L"A");
              xml.Attribute(L"count", -3);
              xml.startElement(L"B");
              EXPECT_FALSE(xml.tagClosed);
              xml.Attribute(L"yes", true);
              xml.Attribute(L"no", false);
              xml.endElement();
              EXPECT_TRUE(xml.tagClosed);
              xml.startElement(L"C");
              xml.endElement();
              xml.endElement();
            }),
            "<A count=\"-3\">\n<B yes=\"TRUE\" no=\"FALSE\"/>\n<C/>\n</A>\n");
}

TEST(XmlWriter, CommentsAndTextCloseAnOpenTag) {
  EXPECT_EQ(Written([](XmlWriter& xml) {
              xml.startElement(L"A");
              xml.Comment(L" why ");
              xml.Raw(L"text\n");
              xml.Comment(L"more");
              xml.endElement();
              xml.startElement(L"B");
              xml.Raw(L"x<y");
              xml.endElement();
            }),
            "<A>\n<!-- why -->\ntext\n<!--more-->\n</A>\n<B>\nx<y</B>\n");
}

TEST(XmlWriter, NumbersHaveFourteenDigits) {
  EXPECT_EQ(Written([](XmlWriter& xml) {
              xml.startElement(L"N");
              xml.Attribute(L"a", 1.0 / 3.0);
              xml.Attribute(L"b", 1e20);
              xml.Attribute(L"c", -0.5);
              xml.Attribute(L"d", 1234567.0);
              xml.scale = 10;
              xml.Attribute(L"e", 2.5, true);
              xml.Attribute(L"f", 2.5, false);
              xml.endElement();
            }),
            "<N a=\"0.33333333333333\" b=\"1e+20\" c=\"-0.5\" d=\"1234567\" e=\"25\" f=\"2.5\"/>\n");
}

TEST(XmlWriter, WritesEachKindWithItsAttributesInOrder) {
  const auto text = Written([](XmlWriter& xml) {
    xml.scale = 2;
    xml.Write(L"p", Point(1, -2));
    xml.Write(L"q", Point3d(1, 2, 3));
    xml.Write(L"v", Vector2d(0.5, 1));
    xml.Write(L"w", Vector3d(1, 0, -1));
    xml.Write(L"l", CLine(Point(3, 4), 1, 0, true));
    xml.Write(L"c", Circle(Point(5, 6), 7));
  });
  EXPECT_EQ(text,
            "<POINT name=\"p\" x=\"2\" y=\"-4\"/>\n"
            "<POINT3D name=\"q\" x=\"2\" y=\"4\" z=\"6\"/>\n"
            "<VECTOR name=\"v\" dx=\"0.5\" dy=\"1\"/>\n"
            "<VECTOR3D name=\"w\" dx=\"1\" dy=\"0\" dz=\"-1\"/>\n"
            "<CLINE name=\"l\" x=\"6\" y=\"8\" dx=\"1\" dy=\"0\"/>\n"
            "<CIRCLE name=\"c\" xc=\"10\" yc=\"12\" radius=\"14\"/>\n");
}

TEST(XmlWriter, AMatrixIsWrittenByColumnsWithAScaledTranslation) {
  Matrix m;
  EXPECT_EQ(Written([&](XmlWriter& xml) { xml.Write(L"M", m); }), "<M UnitMatrix=\"TRUE\"/>\n");
  for (int i = 0; i < 12; ++i) m.e[i] = i + 1;
  m.e[0] = -1;
  m.unit = false;
  m.mirrored = true;  // which is wrong and computed again
  const auto text = Written([&](XmlWriter& xml) {
    xml.scale = 100;
    xml.Write(L"MATRIX", m);
  });
  const bool mirrored = Matrix(m).IsMirrored();
  EXPECT_EQ(text, std::string("<MATRIX UnitMatrix=\"FALSE\" Mirrored=\"") + (mirrored ? "TRUE" : "FALSE") +
                      "\" cx - e[0]=\"-1\" e[4]=\"5\" e[8]=\"9\" cy - e[1]=\"2\" e[5]=\"6\" e[9]=\"10\" "
                      "cz - e[2]=\"3\" e[6]=\"7\" e[10]=\"11\" Tr - e[3]=\"400\" e[7]=\"800\" "
                      "e[11]=\"1200\"/>\n");
  EXPECT_FALSE(mirrored);
}

TEST(XmlWriter, AVertexHasItsCentreWhenItEndsAnArc) {
  EXPECT_EQ(Written([](XmlWriter& xml) {
              xml.Write(L"", spVertex(LINEAR, Point(1, 2), Point(9, 9)));
              xml.Write(L"n", spVertex(CW, Point(1, 2), Point(3, 4), 7));
            }),
            "<SPVERTEX name=\"\" ID=\"UNMARKED\" type=\"LINEAR\">\n<POINT name=\"\" x=\"1\" y=\"2\"/>\n"
            "</SPVERTEX>\n"
            "<SPVERTEX name=\"n\" ID=\"7\" type=\"CW\">\n<POINT name=\"\" x=\"1\" y=\"2\"/>\n"
            "<POINT name=\"centre\" x=\"3\" y=\"4\"/>\n</SPVERTEX>\n");
}

TEST(XmlWriter, OnlyBareMarksHaveWords) {
  const auto ID = [](std::uint32_t word) {
    const auto text = Written([&](XmlWriter& xml) { xml.Write(L"", spVertex(ACW, {}, {}, word)); });
    const auto from = text.find("ID=\"") + 4;
    return text.substr(from, text.find('"', from) - from);
  };
  EXPECT_EQ(ID(UNMARKED), "UNMARKED");
  EXPECT_EQ(ID(ROLL_AROUND), "ROLL_AROUND RADIUS");
  EXPECT_EQ(ID(INTERSECTION), "INTERSECTION");
  EXPECT_EQ(ID(0), "0");
  EXPECT_EQ(ID(ROLL_AROUND | 4), "536870916");
  EXPECT_EQ(ID(UNMARKED | 1), "268435457");
  EXPECT_EQ(ID(FULL_CIRCLE_KURVE), "-2147483648");
}

TEST(XmlWriter, RadiusAndLengthOfASpanComeAfterItsChildren) {
  EXPECT_EQ(Written([](XmlWriter& xml) {
              xml.scale = 10;
              xml.Write(L"", Span(Point(0, 0), Point(3, 4), 5));
              xml.Write(L"s", Span(ACW, Point(1, 0), Point(-1, 0), Point(0, 0)));
            }),
            "<SPAN name=\"\" ID=\"5\" type=\"LINEAR\">\n<POINT name=\"\" x=\"0\" y=\"0\"/>\n"
            "<POINT name=\"\" x=\"30\" y=\"40\"/>\n length=\"50\"</SPAN>\n"
            "<SPAN name=\"s\" ID=\"UNMARKED\" type=\"ACW\">\n<POINT name=\"\" x=\"10\" y=\"0\"/>\n"
            "<POINT name=\"\" x=\"-10\" y=\"0\"/>\n<POINT name=\"centre\" x=\"0\" y=\"0\"/>\n"
            " radius=\"10\" length=\"31.415926535898\"</SPAN>\n");
}

TEST(XmlWriter, ContoursCountOneVertexMoreThanSpans) {
  Kurve k;
  k.Start(Point(0, 0));
  k.Add(Point(1, 0));
  const auto text = Written([&](XmlWriter& xml) { xml.Write(L"k", k); });
  EXPECT_EQ(text,
            "<KURVE name=\"k\" nVertices=\"2\">\n<MATRIX UnitMatrix=\"TRUE\"/>\n"
            "<SPVERTEX name=\"\" ID=\"UNMARKED\" type=\"LINEAR\">\n<POINT name=\"\" x=\"0\" y=\"0\"/>\n"
            "</SPVERTEX>\n"
            "<SPVERTEX name=\"\" ID=\"UNMARKED\" type=\"LINEAR\">\n<POINT name=\"\" x=\"1\" y=\"0\"/>\n"
            "</SPVERTEX>\n</KURVE>\n");
  EXPECT_EQ(Written([](XmlWriter& xml) { xml.Write(L"", Kurve()); }),
            "<KURVE name=\"\" nVertices=\"1\">\n<MATRIX UnitMatrix=\"TRUE\"/>\n</KURVE>\n");
  EXPECT_EQ(Written([](XmlWriter& xml) { xml.Write(L"", KurveEx()); }),
            "<KURVEEX name=\"\" nVertices=\"1\"/>\n");
}

TEST(XmlWriter, AReversedContourIsWrittenAsItReads) {
  KurveEx k;
  k.Start(Point(0, 0));
  k.Add(1, 0);
  k.Add(ACW, Point(1, 2), Point(1, 1));
  k.Reverse(true);
  const auto text = Written([&](XmlWriter& xml) { xml.Write(L"r", k); });
  EXPECT_THAT(text,
              ::testing::StartsWith("<KURVEEX name=\"r\" nVertices=\"3\">\n<SPAN name=\"\" "
                                    "ID=\"UNMARKED\" type=\"CW\">\n<POINT name=\"\" x=\"1\" y=\"2\"/>"));
}

TEST(XmlWriter, TheSystemWritesInchesForMetresToo) {
  const auto system = [](bool toMillimetres) {
    return Written([](XmlWriter& xml) { xml.WriteSystem(); }, toMillimetres);
  };
  EXPECT_EQ(system(false), "<SYSTEM UNITS=\"inches\" TOLERANCE=\"5e-06\"/>\n");
  EXPECT_EQ(system(true), "<SYSTEM UNITS=\"inches\" TOLERANCE=\"5e-06\"/>\n") << "never scaled";
  {
    const UnitsGuard units(0);
    EXPECT_EQ(system(true), "<SYSTEM UNITS=\"mm\" TOLERANCE=\"0.005\"/>\n");
  }
  const UnitsGuard units(1);
  EXPECT_EQ(system(false), "<SYSTEM UNITS=\"inches\" TOLERANCE=\"0.0005\"/>\n");
}

TEST(XmlWriter, ScalesToMillimetresFromMetresAlone) {
  const auto scale = [](bool toMillimetres) {
    std::ostringstream bytes;
    return XmlWriter(bytes, toMillimetres).scale;
  };
  EXPECT_EQ(scale(false), 1.0);
  EXPECT_EQ(scale(true), 1000.0);
  {
    const UnitsGuard units(0);
    EXPECT_EQ(scale(true), 1.0);
  }
  const UnitsGuard units(1);
  EXPECT_EQ(scale(true), 1.0);
}

TEST(XmlWriter, AnUnbalancedWriterThrows) {
  std::ostringstream bytes;
  EXPECT_EQ(ThrownText([&] { XmlWriter(bytes).endElement(); }),
            L"Element not started or unmatched startElement/endElement");
  EXPECT_EQ(ThrownText([&] { XmlWriter(bytes).startElement(L"A"); }),
            L"Unmatched startElement/endElement - data still in list");
}

TEST(XmlWriter, TheFileIsCompleteWhenAnUnbalancedWriterThrows) {
  const Folder folder;
  const std::filesystem::path path = folder / "open.xml";
  EXPECT_EQ(ThrownText([&] {
              XmlWriter xml(Wide(path));
              xml.startElement(L"A");
              xml.Raw(L"text");
            }),
            L"Unmatched startElement/endElement - data still in list");
  EXPECT_EQ(ReadBytes(path), "<A>\ntext");
}

TEST(XmlWriter, DoesNotThrowOnTopOfAnotherException) {
  std::ostringstream bytes;
  EXPECT_EQ(ThrownText([&] {
              XmlWriter xml(bytes);
              xml.startElement(L"A");
              throw L"first";
            }),
            L"first");
}

TEST_F(XmlMessages, AFileThatCannotBeOpenedIsReportedAndNothingIsWritten) {
  const Folder folder;
  const std::wstring path = Wide(folder / "missing/file.xml");
  {
    XmlWriter xml(path);
    EXPECT_FALSE(xml.IsOpen());
    EXPECT_FALSE(xml.Flush());
    xml.startElement(L"A");
    xml.Attribute(L"n", 1);
    xml.Comment(L"c");
    xml.Write(L"p", Point(1, 2));
    xml.endElement();
  }
  EXPECT_EQ(shown.text, L"Cannot open output XML file - " + path);
  EXPECT_EQ(shown.title, L"XML error - ");
  EXPECT_EQ(shown.count, 1);
}

TEST_F(XmlMessages, AFullDiskIsNoticed) {
  XmlWriter xml(L"/dev/full");
  ASSERT_TRUE(xml.IsOpen());
  xml.startElement(L"A");
  xml.endElement();
  EXPECT_FALSE(xml.Flush());
  EXPECT_EQ(shown.count, 0);
}

TEST(XmlWriter, AnExistingFileIsReplaced) {
  const Folder folder;
  const std::filesystem::path path = folder / "ä.xml";
  std::ofstream(path) << "what was there before, which is longer";
  {
    XmlWriter xml(Widen(path.string()));
    EXPECT_TRUE(xml.IsOpen());
    xml.startElement(L"Ünit");
    xml.endElement();
    EXPECT_TRUE(xml.Flush());
  }
  EXPECT_EQ(ReadBytes(path), "<Ünit/>\n");
}

TEST(XmlDebugForm, HasItsOwnAttributes) {
  const auto text = [](const auto& element) {
    std::wostringstream os;
    WriteDebug(os, L"n", element);
    return os.str();
  };
  EXPECT_EQ(text(Circle(Point(1, 2.5), 3)), L"<CIRCLE name=\"n\" x=\"1\" y=\"2.5\" radius=\"3\"/>\n");
  EXPECT_EQ(text(Circle()), L"<CIRCLE name=\"n\" ok=\"false\"/>\n");
  EXPECT_EQ(text(CLine(Point(1, 2), 0, 5, true)), L"<CLINE name=\"n\" x=\"1\" y=\"2\" dx=\"0\" dy=\"1\"/>\n");
  EXPECT_EQ(text(CLine()), L"<CLINE name=\"n\" ok=\"false\"/>\n");
}

TEST(WideText, CharactersTakeOneTwoOrThreeBytes) {
  EXPECT_EQ(Narrow(L"a\u007f"), "a\x7f");
  EXPECT_EQ(Narrow(L"\u0080\u07ff"), "\xc2\x80\xdf\xbf");
  EXPECT_EQ(Narrow(L"\u0800\uffff"), "\xe0\xa0\x80\xef\xbf\xbf");
  EXPECT_EQ(Narrow(L"\U0001F600"), "\xed\xa0\xbd\xed\xb8\x80") << "two halves";
}

TEST(WideText, ComesBack) {
  const std::wstring all = L"aZ\u00e4\u07ff\u0800\u20ac\uffff\U00010000\U0010ffff.";
  EXPECT_EQ(Widen(Narrow(all)), all);
  EXPECT_EQ(Widen("\xf0\x9f\x98\x80"), L"\U0001F600") << "of other writers";
}

TEST(WideText, InvalidBytesBecomeTheCharactersOfTheirNumbers) {
  EXPECT_EQ(Widen("\x80z"), L"\u0080z");
  EXPECT_EQ(Widen("\xe4ra"), L"\u00e4ra");
  EXPECT_EQ(Widen("\xe2\x82"), L"\u00e2\u0082");
  EXPECT_EQ(Widen("\xff"), L"\u00ff");
  EXPECT_EQ(Widen("\xed\xa0\xbdx"), std::wstring(1, wchar_t(0xD83D)) + L"x");
}

}  // namespace
}  // namespace geometry
