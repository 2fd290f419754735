#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iosfwd>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// Units, tolerances and the ways to report a failure: what the whole geometry library shares.
///
/// The variables below belong to the process. All have their start values before any code runs, so that
/// objects built at start-up may rely on them. `SetUnits` changes them all; reading a file may change
/// `TOLERANCE` and `CLOSED_TOLERANCE` alone. Nothing guards them: the library is used from one thread.
namespace geometry {

/// The current unit of length: 0 millimetres, 1 inches, 2 metres. Any other value acts as metres.
extern std::int32_t Units;

extern double TOLERANCE;           ///< same point, null span, same radius
extern double CLOSED_TOLERANCE;    ///< ends of a closed `KurveEx`; ten times `TOLERANCE`
extern double TIGHT_TOLERANCE;     ///< vectors without length, equality of matrices
extern double VECTOR_TOLERANCE;    ///< equality of vectors, determinants next to zero
extern double RELATIVE_TOLERANCE;  ///< read by `TightRelative` only

/// These are set with the others, and nothing in the library reads them; older callers may.
extern double UNUSED_TOLERANCE_1, UNUSED_TOLERANCE_2, UNUSED_TOLERANCE_3, UNUSED_TOLERANCE_4;

extern const double ANGLE_TOLERANCE;      ///< 0.015 degrees, in radians
extern const double COS_ANGLE_TOLERANCE;  ///< its cosine
extern const double SIN_ANGLE_TOLERANCE;  ///< its sine
extern const double COS_15;               ///< cosine of 15 degrees

/// Sets the unit and its tolerances. Throws L"INVALID UNITS" for an unknown selector, which is stored
/// nevertheless; the tolerances then stay as they were.
void SetUnits(std::int32_t units);
std::int32_t GetUnits();

double mm(double v);            ///< millimetres to the current unit
double ToMm(double v);          ///< the current unit to millimetres
double MetresFromMm(double v);  ///< millimetres to metres if these are the unit, else unchanged
double MmFromMetres(double v);  ///< metres to millimetres if metres are the unit, else unchanged
double Inch(double v);          ///< inches to the current unit
double ToInch(double v);        ///< the current unit to inches

/// Throws `text` by value, for handlers of `const wchar_t*`. Severity and code document the place of the
/// throw and are not passed on.
[[noreturn]] void ThrowError(const wchar_t* text, int severity, int code);

/// Shows a message to the user, with a title and perhaps the stop icon.
using MessageSink = void (*)(const std::wstring& text, const std::wstring& title, bool stopIcon);

/// Installs `sink` and returns the former one. Null brings back the first one, which writes to std::wcerr.
MessageSink SetMessageSink(MessageSink sink);

/// Shows `text` under the title L"Lumera Error" with the stop icon.
void ShowMessage(const std::wstring& text);
/// Shows `text` under that title.
void ShowMessage(const std::wstring& text, const std::wstring& title, bool stopIcon);

}  // namespace geometry
