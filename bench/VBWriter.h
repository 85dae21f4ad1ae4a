// Collects lines of made-up Visual Basic source as the IDE would save them: CR LF, code page 1252.
// The dice are our own, so that the same seed gives the same bytes with every compiler.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class Dice {
 public:
  explicit Dice(std::uint32_t lSeed) : mlState(lSeed * 2654435761U + 1) {}
  /// A number from 0 to lSides - 1.
  std::uint32_t Roll(std::uint32_t lSides) {
    mlState = mlState * 1664525U + 1013904223U;
    return (mlState >> 8) % lSides;
  }
  bool OneIn(std::uint32_t lSides) { return Roll(lSides) == 0; }

 private:
  std::uint32_t mlState;
};

class VBWriter {
 public:
  explicit VBWriter(std::uint32_t lSeed) : oDice(lSeed) {}

  Dice oDice;

  /// One line; lLevel counts indentations of four columns.
  void Line(std::size_t lLevel, std::string_view sText) {
    msBytes.append(lLevel * 4, ' ').append(sText).append("\r\n");
    ++mlLines;
  }
  void Blank() { Line(0, ""); }

  std::size_t Lines() const { return mlLines; }
  std::string Take() { return std::move(msBytes); }

 private:
  std::string msBytes;
  std::size_t mlLines = 0;
};
