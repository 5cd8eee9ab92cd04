#include "ui/qt/FormRows.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <tuple>

namespace talven {
namespace {

constexpr int kSameRow = 2;

int Middle(const Geometry& place) {
  return place.y + place.height / 2;
}

/// Position of the middle in half units, since a height may be odd.
int DoubledMiddle(const Geometry& place) {
  return 2 * place.y + place.height;
}

/// A group box has no row: it lies around others.
bool StandsInRow(const FieldSpec& field) {
  return field.kind != FieldKind::kGroupBox;
}

/// The box that others are levelled with: one to type into rather than a caption.
bool LeadsRow(const FieldSpec& field) {
  return IsNumeric(field.kind) || field.kind == FieldKind::kEdit;
}

std::vector<Geometry> Sorted(const FormSpec& form, const std::vector<int>& ids) {
  std::vector<Geometry> places;
  for (const int id : ids) places.push_back(form.Find(id)->geometry);
  return places;
}

}  // namespace

std::vector<Geometry> LevelRows(const FormSpec& form) {
  std::vector<Geometry> places;
  for (const FieldSpec& field : form.fields) {
    places.push_back(field.geometry);
    if (!StandsInRow(field) || LeadsRow(field)) continue;
    for (const FieldSpec& other : form.fields) {
      if (&other == &field || !StandsInRow(other)) continue;
      const bool is_before = &other < &field;
      const int distance = DoubledMiddle(other.geometry) - DoubledMiddle(field.geometry);
      if (std::abs(distance) > 2 * kSameRow || !(LeadsRow(other) || is_before)) continue;
      places.back().y += distance / 2;
      break;
    }
  }
  return places;
}

std::vector<std::size_t> ReadingOrder(const FormSpec& form) {
  std::vector<std::size_t> order(form.fields.size());
  std::iota(order.begin(), order.end(), 0);
  const std::vector<Geometry> places = LevelRows(form);
  std::ranges::stable_sort(order, {}, [&places](std::size_t i) { return std::tuple(Middle(places[i]), places[i].x); });
  return order;
}

int NeighbourInGroup(const FormSpec& form, const std::vector<int>& group, int from, Direction direction) {
  const std::vector<Geometry> places = Sorted(form, group);
  std::vector<std::size_t> order(group.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, {}, [&places](std::size_t i) { return std::tuple(places[i].x, places[i].y); });
  const auto start = static_cast<std::size_t>(std::ranges::find(group, from) - group.begin());
  const auto rank = static_cast<std::size_t>(std::ranges::find(order, start) - order.begin());
  if (direction == Direction::kDown) return group[order[(rank + 1) % order.size()]];
  if (direction == Direction::kUp) return group[order[(rank + order.size() - 1) % order.size()]];
  const auto is_beside = [&](std::size_t i) {
    return direction == Direction::kLeft ? places[i].x < places[start].x : places[i].x > places[start].x;
  };
  std::size_t nearest = start;
  for (const std::size_t i : order) {
    if (!is_beside(i)) continue;
    const auto distance = [&](std::size_t j) {
      return std::tuple(std::abs(places[j].x - places[start].x), std::abs(places[j].y - places[start].y));
    };
    if (nearest == start || distance(i) < distance(nearest)) nearest = i;
  }
  return group[nearest];
}

}  // namespace talven
