// System calls that fail on demand, in the test's own process or in a program that it starts.
#pragma once

namespace mdlPLM::test {

/// Arms the fault that `plan` describes; a null pointer disarms. A program that is started with the
/// calls loaded in front of it takes the plan from its environment, as PLM_FAULTS.
///
/// Lines of the form key=value:
///   under=FOLDER/     only calls on paths and open files below this folder count
///   at=N              the call that is struck, counted from 1; 0: none
///   what=fail         that call fails with `code`
///   what=kill         the process is killed before that call
///   what=signal       the signal `code` is sent to the process before that call
///   what=hang         that call is never made, and never over
///   what=half         that call transfers half of its bytes, if it transfers any
///   what=interrupt    a signal interrupts that call, if it is one of those that are made again
///   what=stranger     before that call somebody else makes the file `stranger`, if it is not there
///   what=full         that call and later ones that need space fail with `code`
///   what=readonly     that call and later ones that change something fail with `code`
///   what=gone         that call and all later ones fail with `code`
///   code=ERRNO        0: the one that is natural for the call
///   stranger=PATH
///   log=PATH          where the struck call is written down
///   disks=1           the folders right below `under` are disks of their own
///   later=SECONDS     the time of day is so much later
///   always=CALL ERRNO that call fails whenever it is made; such calls are not counted
void ArmFaults(const char* plan);

}  // namespace mdlPLM::test
