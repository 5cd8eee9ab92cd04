// What the eye makes of a form: rows and columns, read off the places of its fields.
#pragma once

#include <vector>

#include "ui/forms/FormSpec.h"

namespace talven {

/// The places of a form's fields, in table order. Fields whose middles lie within two units of each other share one
/// middle, so that a label stands level with its field.
std::vector<Geometry> LevelRows(const FormSpec& form);

/// Indices of the form's fields as they are read: row by row, each from left to right.
std::vector<std::size_t> ReadingOrder(const FormSpec& form);

enum class Direction { kUp, kDown, kLeft, kRight };

/// The field of a group that an arrow key leads to from one of them: along its column, and from a column's end on to
/// the next column; or to the nearest row of the column beside. The same field where there is none.
int NeighbourInGroup(const FormSpec& form, const std::vector<int>& group, int from, Direction direction);

}  // namespace talven
