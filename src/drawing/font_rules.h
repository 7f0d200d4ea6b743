#pragma once

namespace ORR::Drawing {

// Has all fonts painted with smooth edges, whatever the configuration of the machine or of its user
// says: a switch of a desktop's settings is no reason for another drawing. Loads the configuration
// if that has not been done yet.
void settleFontRules();

} // namespace ORR::Drawing
