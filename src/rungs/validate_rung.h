// Rung validation: whether a rung grid has the shape of a ladder network that the network
// compiler can walk.
#pragma once

#include "common/cell.h"

namespace rungc {

// Checks the grid rule by rule and gives 0 for a valid rung or the number of the first rule
// broken (3 to 30); the rung loop reports a number c as error 1000 + c. The rules:
//  - the first row runs from column 0 over passing elements to an output element in column 9,
//    or to a box (38) that fills columns 3 to 9;
//  - every lower row, as long as its column-0 cell is not empty, holds branches that leave and
//    rejoin the rows above through cells with the link flag, and outputs only in column 9.
int ValidateRung(const RungGrid& grid);

}  // namespace rungc
