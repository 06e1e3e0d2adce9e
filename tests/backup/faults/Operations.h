// The operations of the backup, by their number, in this process and in one that may be killed.
#pragma once

#include "QsUtils/text/CString.h"

#include "tests/backup/faults/FaultPoints.h"

enum class Operation { Open, Save, Change, Discard, Look };

void Carry(Operation operation, const CString& project);

/// Carries an operation out in a process of its own. False when that was killed.
bool CarryApart(Operation operation, const CString& project, const FaultPoints::Plan& plan);
