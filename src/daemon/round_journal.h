// The journal's lines on what a round has done.
#pragma once

#include "daemon/round.h"

void TellOfRound(const RoundOutcome &outcome);
