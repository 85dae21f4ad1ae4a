// A Visual Basic run-time failure: number, description and source, as every layer throws it.
//
//   throw Failure(53, u"File not found: C:\\a.bas", u"host");
//   throw Failure(35);                     // the run-time's own text for 35
#pragma once

#include <cstdint>
#include <exception>
#include <string>

/// The run-time's English text of a failure number, without a final stop.
/// Numbers that the run-time doesn't use give "Application-defined or object-defined error".
std::u16string FailureText(std::int32_t lNumber);

class Failure : public std::exception {
 public:
  /// lNumber: a VB error number, such as 5, 35, 53. The description is FailureText(lNumber).
  explicit Failure(std::int32_t lNumber);
  Failure(std::int32_t lNumber, std::u16string sDescription, std::u16string sSource = {});

  std::int32_t Number() const { return mlNumber; }
  const std::u16string& Description() const { return msDescription; }
  /// Where it came from: the layer or object that failed; may be empty.
  const std::u16string& Source() const { return msSource; }

  /// True once an error run-time has been told of it, so that outer routines don't log it again.
  bool Reported() const { return mbReported; }
  void SetReported() { mbReported = true; }

  /// The description in UTF-8. Valid for the life of this object.
  const char* what() const noexcept override { return msWhat.c_str(); }

 private:
  std::int32_t mlNumber;
  std::u16string msDescription;
  std::u16string msSource;
  std::string msWhat;
  bool mbReported = false;
};
