// Watches the text of inactive branches between one procedure and the next. It belongs to neither:
// the procedure behind it begins at the directive that ends it. Only where each inactive branch
// holds nothing but a head is it part of what follows: one procedure with a head for each branch.
//
//   #If VBA7 Then                            #If TRIAL Then
//   Sub Ring(ByVal window As LongPtr)        Sub Greet()
//   #Else                                    End Sub
//   Sub Ring(ByVal window As Long)           #Else
//   #End If        ' one procedure           Sub Greet()        ' begins at the #Else
#pragma once

#include <cstdint>

#include "Directive.h"
#include "MemberScan.h"

class InactiveText {
 public:
  /// Where the inactive text ends: at a directive.
  struct End {
    std::int32_t line = 0;   ///< 0: there was no inactive text
    std::int32_t state = 0;  ///< of conditional compilation ahead of that line
    std::int32_t heads = 0;  ///< of procedures in the inactive text
  };

  /// A procedure or a declaration stands here: what was inactive ahead of it doesn't count.
  void Forget() { *this = {}; }
  /// A line that isn't blank, in an inactive branch.
  void TakeLine() { mAny = true; }
  /// A statement of such a line.
  void Take(const Statement& statement);
  /// A directive, which the compiler reads in another state behind it.
  void Take(DirectiveKind kind, bool wasActive, bool isActive, End here);

  /// For the head of a procedure that stands here.
  const End& AtHead() const { return mEnd; }
  /// For anything else, and for the end of the module.
  const End& AtOther() {
    Settle();
    return mEnd;
  }

 private:
  void Settle() {
    if (mOtherHeads.line != 0) mEnd = mOtherHeads;
    mOtherHeads = {};
  }

  End mEnd;
  End mOtherHeads;  ///< of a stretch that may be other heads of the procedure that follows
  std::int32_t mHeads = 0;
  std::int32_t mHeadsOfBranch = 0;
  bool mAny = false;
  bool mHeadsOnly = false;  ///< each branch of the stretch so far holds one head and nothing else
};
