// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A library that stands between a program and the host: it counts the calls of each kind and makes one of
// them fail, or ends the program at it. It is linked to the driver, and can be put in front of any other
// program by LD_PRELOAD. The environment tells what is to fail:
//   DORVANE_FAULT_KIND   a kind of call by its name, as "write"; "change" for all that change the disk
//   DORVANE_FAULT_CALL   which one, from 1
//   DORVANE_FAULT_ERROR  the host's error number
//   DORVANE_FAULT_HOW    "once"; "stays" for all from that one on; "short" for a write that is cut in its
//   middle
//                        and those behind it; "kill"
//   DORVANE_FAULT_START  when set, calls are counted from the program's start on
//   DORVANE_FAULT_TRACE  when set, where it failed is told on the error output

#ifdef __cplusplus
extern "C" {
#endif

/// Calls between these two count.
void FaultsBegin(void);
void FaultsEnd(void);

/// What is done in between by the test's own means.
void FaultsPause(void);
void FaultsResume(void);

/// The names of the kinds, up to a null, and how many calls there were of one.
const char* FaultsKindName(int kind);
long FaultsCounted(int kind);

/// Whether the call that was to fail has been reached.
int FaultsHit(void);

#ifdef __cplusplus
}
#endif
