// What a COM call says when it fails, as a Failure with the number that Visual Basic would give.
// The IDE's own numbers come in three ways: as the result code, as a code in the exception record,
// or as a plain number there. All of them give the same Failure:
//
//   result 0x800A0023                              Failure 35
//   DISP_E_EXCEPTION, scode 0x800A0023             Failure 35
//   DISP_E_EXCEPTION, wCode 35                     Failure 35
#pragma once

#include <oaidl.h>

#include <cstdint>

#include "Failure.h"

/// Codes of the system have numbers of Visual Basic's where it knows one; others keep their 32
/// bits.
std::int32_t FailureNumber(HRESULT result);

/// record: what the call filled in, or null. Asks for details that the callee left for later, takes
/// description and source out of the record, and frees its texts.
Failure FailureOf(HRESULT result, EXCEPINFO* record = nullptr);

/// Throws unless the call worked.
void CheckCom(HRESULT result);
