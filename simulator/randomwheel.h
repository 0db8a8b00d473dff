#pragma once

#include "wheel.h"

// A wheel of any size, spacing and noise that a car may have, and some worse.
Wheel randomWheel(Noise *noise);

// The smallest spacing on the better channels over the standard deviation of the noise.
double spacingToNoise(const Wheel &wheel);
