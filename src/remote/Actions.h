// The commands, by subject. The table in Headers.cpp says which header is which.
#pragma once

#include "remote/Commands.h"

namespace tessarine::remote {

// CommonActions.cpp: IEEE 488.2 and SYSTem.
void identify(const Call& call);
void clearStatus(const Call& call);
void enableEvents(const Call& call);
void tellEventsEnabled(const Call& call);
void tellEvents(const Call& call);
void complete(const Call& call);
void tellComplete(const Call& call);
void awaitCompletion(const Call& call);
void reset(const Call& call);
void enableRequests(const Call& call);
void tellRequestsEnabled(const Call& call);
void tellStatusByte(const Call& call);
void tellSelfTest(const Call& call);
void tellError(const Call& call);
void tellErrorCount(const Call& call);
void tellVersion(const Call& call);
void choosePort(const Call& call);
void tellPort(const Call& call);

// TuningActions.cpp: model, fields, loads, and what the board makes of them.
void pickModel(const Call& call);
void tellModel(const Call& call);
void listModels(const Call& call);
void setField(const Call& call);
void tellField(const Call& call);
void setPrescaler(const Call& call);
void tellPrescaler(const Call& call);
void load(const Call& call);
void initialize(const Call& call);
void tellOutput(const Call& call);
void tellLock(const Call& call);
void listRegisters(const Call& call);
void tellRegister(const Call& call);
void setFractionalFile(const Call& call);
void tellFractionalFile(const Call& call);
void setBandFile(const Call& call);
void tellBandFile(const Call& call);

// RunningActions.cpp: hops and sweeps.
void startHop(const Call& call);
void stopHop(const Call& call);
void tellHop(const Call& call);
void startSweep(const Call& call);
void stopSweep(const Call& call);
void tellSweep(const Call& call);
void setSweepMode(const Call& call);
void tellSweepMode(const Call& call);
void stepUp(const Call& call);
void stepDown(const Call& call);

// ControlActions.cpp: every control of every window.
void setControl(const Call& call);
void clickControl(const Call& call);
void tellValue(const Call& call);
void tellVisible(const Call& call);
void listControls(const Call& call);

}  // namespace tessarine::remote
