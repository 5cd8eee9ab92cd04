// Symmetry operators and the groups that they form: of a space group, and the Laue group of its reflections.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "crystal/Lattice.h"

namespace talven {

struct MillerIndex {
  std::int32_t h = 0;
  std::int32_t k = 0;
  std::int32_t l = 0;

  auto operator<=>(const MillerIndex&) const = default;
  MillerIndex operator-() const { return {-h, -k, -l}; }
};

/// x' = R x + t. Translations are counted in parts of 24, 0 to 23: every space group in every common setting has them.
struct SymmetryOperator {
  static constexpr int kParts = 24;
  using Rotation = std::array<std::array<int, 3>, 3>;

  Rotation rotation = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
  std::array<int, 3> translation = {0, 0, 0};

  bool operator==(const SymmetryOperator&) const = default;
  /// This operator after another one, the translation brought to 0 to 23.
  SymmetryOperator After(const SymmetryOperator& first) const;
  Vector3 Apply(const Vector3& position) const;
  /// h R: the index whose reflection has the same F squared.
  MillerIndex Apply(const MillerIndex& index) const {
    const auto component = [&](std::size_t i) {
      return index.h * rotation[0][i] + index.k * rotation[1][i] + index.l * rotation[2][i];
    };
    return {component(0), component(1), component(2)};
  }
  /// h t in parts of 24, 0 to 23: the phase that the translation gives.
  int PhaseOf(const MillerIndex& index) const;
};

/// An operator from text as `-x, 0.5+y, 1/2-z`, in either case and with blanks anywhere. Decimals within 0.01 of a
/// part of 24 mean that part. Nothing if it is no operator with a determinant of 1 or -1.
std::optional<SymmetryOperator> ParseOperator(std::string_view text);

/// The translations of a lattice letter: P A B C I F, and R for rhombohedral obverse on hexagonal axes; the zero
/// translation comes first. For another letter that one alone.
std::vector<std::array<int, 3>> CentringOf(char letter);

/// A set of operators, split into centring, inversion and the rest. Default: P 1.
class SymmetryGroup {
 public:
  SymmetryGroup() : SymmetryGroup(std::vector<SymmetryOperator>{SymmetryOperator{}}) {}
  /// Of operators as they are listed: equal ones are taken once and the identity is added where it is missing, but
  /// nothing else.
  explicit SymmetryGroup(const std::vector<SymmetryOperator>& operators);

  /// All operators, the identity first.
  const std::vector<SymmetryOperator>& Operators() const { return operators_; }
  /// Those that are left when operators that differ by a centring translation, or by inversion at the origin where
  /// that is one of them, count once.
  const std::vector<SymmetryOperator>& Reduced() const { return reduced_; }
  /// Translations without rotation, the zero translation first.
  const std::vector<std::array<int, 3>>& Centring() const { return centring_; }
  /// True if -x, -y, -z is an operator.
  bool HasInversionAtOrigin() const { return has_inversion_; }
  /// True if each product of two operators is an operator.
  bool IsGroup() const { return is_group_; }
  /// The rotations of the Laue group, each of a pair R, -R once: for a reflection h, the h R and -h R are its
  /// equivalents.
  const std::vector<SymmetryOperator::Rotation>& LaueRotations() const { return laue_; }

  /// True for a reflection that vanishes whatever the atoms are.
  bool IsAbsent(const MillerIndex& index) const;
  /// All different equivalents under the Laue group, -h -k -l included, in falling order. Their number is the
  /// multiplicity of the reflection.
  std::vector<MillerIndex> Equivalents(const MillerIndex& index) const;
  /// Those in half a sphere: the first index that is not 0 is positive.
  std::vector<MillerIndex> EquivalentsInHalf(const MillerIndex& index) const;
  /// The greatest equivalent, compared by h, then k, then l: it stands for all.
  MillerIndex Representative(const MillerIndex& index) const;
  /// How many different equivalents there are, -h -k -l included, if the index is its own representative; else 0.
  int MultiplicityIfRepresentative(const MillerIndex& index) const;

 private:
  std::vector<SymmetryOperator> operators_;
  std::vector<SymmetryOperator> reduced_;
  std::vector<std::array<int, 3>> centring_;
  std::vector<SymmetryOperator::Rotation> laue_;
  bool has_inversion_ = false;
  bool is_group_ = true;
};

}  // namespace talven
