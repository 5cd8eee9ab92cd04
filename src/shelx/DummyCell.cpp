#include "shelx/DummyCell.h"

#include "crystal/CellGeometry.h"
#include "textio/Numbers.h"

namespace talven {

void DeriveDummyCell(UnitCell& cell) {
  const double ca = CosineOf(cell.alpha);
  const double cb = CosineOf(cell.beta);
  const double cg = CosineOf(cell.gamma);
  cell.CosAlpha = Store(ca);
  cell.CosBeta = Store(cb);
  cell.CosGamma = Store(cg);
  cell.Volume = CellVolume(cell, ca, cb, cg);
  DeriveReciprocalCell(cell);
}

}  // namespace talven
