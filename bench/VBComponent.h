// The file of one made-up component, header and attributes included.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

enum class VBKind { Module, Class, Form, Control };

/// About lLines lines, never fewer; the same arguments give the same bytes. One method in that many
/// has a handler of its own.
std::string MakeComponent(VBKind eKind, const std::string& sName, std::size_t lLines,
                          std::uint32_t lSeed, std::uint32_t handlerOneIn = 50);
