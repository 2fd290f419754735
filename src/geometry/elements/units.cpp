#include "geometry/units.h"

#include <iostream>

namespace geometry {
namespace {

constexpr std::int32_t kMillimetres = 0, kInches = 1, kMetres = 2;

struct ToleranceRow {
  double tolerance, tight, vector, relative, unused[4];
};

// clang-format off
constexpr ToleranceRow kRows[] = {
    // same point  tight  vector  relative  without a reader
    {  0.005,      1e-6,  5e-6,   0.001,    {0.1,    0.005,  1e-5, 0.001 }},  // millimetres
    {  0.0005,     1e-7,  1e-7,   0.0001,   {0.01,   0.0005, 1e-6, 0.0001}},  // inches
    {  5e-6,       1e-9,  1e-9,   1e-6,     {0.0001, 5e-6,   1e-8, 1e-6  }},  // metres
};
// clang-format on

void WriteToConsole(const std::wstring& text, const std::wstring& title, bool) {
  std::wcerr << title << L": " << text << std::endl;
}

constinit MessageSink messageSink = WriteToConsole;

}  // namespace

constinit std::int32_t Units = kMetres;
constinit double TOLERANCE = kRows[kMetres].tolerance;
constinit double CLOSED_TOLERANCE = kRows[kMetres].tolerance * 10.0;
constinit double TIGHT_TOLERANCE = kRows[kMetres].tight;
constinit double VECTOR_TOLERANCE = kRows[kMetres].vector;
constinit double RELATIVE_TOLERANCE = kRows[kMetres].relative;
constinit double UNUSED_TOLERANCE_1 = 0.0001;
constinit double UNUSED_TOLERANCE_2 = 5e-6;
constinit double UNUSED_TOLERANCE_3 = 1e-7;  // ten times what SetUnits gives metres
constinit double UNUSED_TOLERANCE_4 = 1e-6;

// Written out and not computed, so that they too have their values before any code runs.
constinit const double ANGLE_TOLERANCE = 0.0002617993877991494;
constinit const double COS_ANGLE_TOLERANCE = 0.9999999657305405;
constinit const double SIN_ANGLE_TOLERANCE = 0.0002617993848085749;
constinit const double COS_15 = 0.9659258262890683;

void SetUnits(std::int32_t units) {
  Units = units;
  if (units != kMillimetres && units != kInches && units != kMetres) throw L"INVALID UNITS";
  const ToleranceRow& row = kRows[units];
  TOLERANCE = row.tolerance;
  CLOSED_TOLERANCE = TOLERANCE * 10.0;
  TIGHT_TOLERANCE = row.tight;
  VECTOR_TOLERANCE = row.vector;
  RELATIVE_TOLERANCE = row.relative;
  UNUSED_TOLERANCE_1 = row.unused[0];
  UNUSED_TOLERANCE_2 = row.unused[1];
  UNUSED_TOLERANCE_3 = row.unused[2];
  UNUSED_TOLERANCE_4 = row.unused[3];
}

std::int32_t GetUnits() {
  return Units;
}

double mm(double v) {
  if (Units == kMillimetres) return v;
  return Units == kInches ? v / 25.4 : v * 0.001;
}

double ToMm(double v) {
  if (Units == kMillimetres) return v;
  return Units == kInches ? v * 25.4 : v * 1000.0;
}

double MetresFromMm(double v) {
  return Units == kMillimetres || Units == kInches ? v : v * 0.001;
}

double MmFromMetres(double v) {
  return Units == kMillimetres || Units == kInches ? v : v * 1000.0;
}

double Inch(double v) {
  if (Units == kInches) return v;
  return Units == kMillimetres ? v * 25.4 : v * 0.0254;
}

double ToInch(double v) {
  if (Units == kInches) return v;
  return Units == kMillimetres ? v / 25.4 : v / 0.0254;
}

void ThrowError(const wchar_t* text, int /*severity*/, int /*code*/) {
  // Handlers catch the pointer.
  throw text;  // NOLINT(misc-throw-by-value-catch-by-reference)
}

MessageSink SetMessageSink(MessageSink sink) {
  const MessageSink former = messageSink;
  messageSink = sink != nullptr ? sink : WriteToConsole;
  return former;
}

void ShowMessage(const std::wstring& text) {
  ShowMessage(text, L"Lumera Error", true);
}

void ShowMessage(const std::wstring& text, const std::wstring& title, bool stopIcon) {
  messageSink(text, title, stopIcon);
}

}  // namespace geometry
