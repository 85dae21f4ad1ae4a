// The roots of the host's objects. Each call makes a new object that the caller releases; the world
// outlives them all.
#pragma once

#include "HostWorld.h"
#include "IdeModel.h"

inline constexpr TextView AddInName = u"TarvaneQuillon.Connect";

IVBE* MakeIde(HostWorld& world);
/// How the IDE tells the add-in of itself.
IAddIn* MakeAddIn(HostWorld& world);

ICommandBars* MakeBars(HostWorld& world);
IEvents* MakeEvents(HostWorld& world);

/// The number, from 1, that an index of a collection stands for: a number, or a name by nameAt.
/// Failure 9 for one that isn't there, 13 for what can't be an index.
std::int32_t PlaceOf(const VARIANT& index, std::int32_t count, Text (*nameAt)(void*, std::int32_t),
                     void* collection);
template <class NameAt>
std::int32_t PlaceOf(const VARIANT& index, std::int32_t count, NameAt nameAt) {
  return PlaceOf(
      index, count,
      [](void* names, std::int32_t place) { return (*static_cast<NameAt*>(names))(place); },
      &nameAt);
}
