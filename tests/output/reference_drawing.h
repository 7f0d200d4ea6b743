#pragma once

#include "device/device.h"

// A drawing of 420 by 330 points with every primitive, pen and fill that a device knows: what one
// device makes of it can be held against what another one does.
void drawReference(ORR::Graph::Device &device);
