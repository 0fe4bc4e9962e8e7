#include <orvane/snapshot/Grid.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/snapshot/Snapshot.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Grid::Vertical, ORVANE_GRID_VERTICAL_FIELDS)
ORVANE_PLAIN_RECORD_DEFINE(Grid::Horizontal, ORVANE_GRID_HORIZONTAL_FIELDS)
ORVANE_PLAIN_RECORD_DEFINE(Grid, ORVANE_GRID_FIELDS)

}  // namespace orvane
