// Handles of the model's records: three types that can't be mixed up. Numbers from 1, 0 or less for
// none; they are made of numbers and read as numbers only where these travel, at keys of tree
// nodes, data of list rows and in files.
//
//   for (const ProcedureHandle h : HandleRange(oRecord.lFirstProcedure, oRecord.lLastProcedure))
//   ...
#pragma once

#include <compare>
#include <cstdint>

template <class Record>
class Handle {
 public:
  constexpr Handle() = default;
  constexpr explicit Handle(std::int32_t number) : mNumber(number) {}
  constexpr std::int32_t Number() const { return mNumber; }
  /// False for none.
  constexpr explicit operator bool() const { return mNumber >= 1; }
  constexpr auto operator<=>(const Handle&) const = default;
  constexpr Handle& operator++() {
    ++mNumber;
    return *this;
  }

 private:
  std::int32_t mNumber = 0;
};

struct ProjectRecord;
struct ComponentRecord;
struct ProcedureRecord;
using ProjectHandle = Handle<ProjectRecord>;
using ComponentHandle = Handle<ComponentRecord>;
using ProcedureHandle = Handle<ProcedureRecord>;

/// The handles from first to last, both included; empty when first is none.
template <class Record>
class HandleRange {
 public:
  class Iterator {
   public:
    explicit Iterator(Handle<Record> at) : mAt(at) {}
    Handle<Record> operator*() const { return mAt; }
    Iterator& operator++() {
      ++mAt;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return mAt != other.mAt; }

   private:
    Handle<Record> mAt;
  };

  HandleRange(Handle<Record> first, Handle<Record> last) : mFirst(first), mEnd(first) {
    if (first && first <= last) mEnd = Handle<Record>(last.Number() + 1);
  }
  Iterator begin() const { return Iterator(mFirst); }
  Iterator end() const { return Iterator(mEnd); }

 private:
  Handle<Record> mFirst, mEnd;
};
