#include "crystal/StructureFactors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <map>
#include <numbers>
#include <random>

#include "crystal/ScatteringTables.h"

namespace talven {
namespace {

constexpr double kPi = std::numbers::pi;

/// F of one index, summed over all operators and atoms one by one.
std::complex<double> PlainSum(const CrystalModel& model, const MillerIndex& h) {
  const double s_squared = InverseSquareSpacing(model.lattice, h.h, h.k, h.l) / 4;
  const Metric reciprocal = model.lattice.ReciprocalMetric();
  std::complex<double> sum;
  for (const SymmetryOperator& each : model.symmetry.Operators())
    for (const Atom& atom : model.atoms) {
      const Vector3 x = each.Apply(atom.position);
      const MillerIndex t = each.Apply(h);
      const double u = t.h * std::sqrt(reciprocal[0]);
      const double v = t.k * std::sqrt(reciprocal[1]);
      const double w = t.l * std::sqrt(reciprocal[2]);
      const double tensor = atom.u[0] * u * u + atom.u[1] * v * v + atom.u[2] * w * w +
                            2 * (atom.u[3] * v * w + atom.u[4] * u * w + atom.u[5] * u * v);
      const double damping =
          atom.is_anisotropic ? -2 * kPi * kPi * tensor : -8 * kPi * kPi * atom.u_isotropic * s_squared;
      const Scatterer& scatterer = model.scatterers[atom.scatterer];
      sum += atom.occupancy *
             std::complex<double>(scatterer.form.At(s_squared) + scatterer.f_prime, scatterer.f_double_prime) *
             std::exp(std::complex<double>(damping, 2 * kPi * (h.h * x[0] + h.k * x[1] + h.l * x[2])));
    }
  return sum;
}

CrystalModel RandomModel(const Lattice& lattice, std::initializer_list<const char*> operators, std::mt19937& random) {
  std::uniform_real_distribution<double> fraction(-0.2, 1.2);
  CrystalModel model;
  model.lattice = lattice;
  std::vector<SymmetryOperator> list;
  for (const char* const text : operators) list.push_back(ParseOperator(text).value());
  model.symmetry = SymmetryGroup(list);
  for (std::size_t i = 0; i < 3; ++i) {
    Scatterer scatterer{.label = "X", .form = {{3, 2, 1, fraction(random)}, {20, 8, 3, 0.5}, 0.2}};
    scatterer.f_prime = fraction(random) - 1;
    scatterer.f_double_prime = 4 * fraction(random);
    model.scatterers.push_back(scatterer);
  }
  for (std::size_t i = 0; i < 9; ++i) {
    Atom atom{
        .label = "X", .scatterer = (5 * i) % 3, .position = {fraction(random), fraction(random), fraction(random)}};
    atom.occupancy = 0.2 + fraction(random);
    atom.is_anisotropic = i % 2 == 0;
    atom.u_isotropic = i % 3 == 0 ? 0.03 : 0.01 * static_cast<double>(i);
    for (std::size_t j = 0; j < 6; ++j) atom.u[j] = (j < 3 ? 0.03 : 0.003) + 0.004 * fraction(random);
    model.atoms.push_back(atom);
  }
  return model;
}

/// Every kind of split of a group, one that is no group, and a cell without the symmetry of its operators.
TEST(StructureFactors, AreThoseOfThePlainSum) {
  std::mt19937 random(7);
  const Lattice monoclinic{7, 9, 11, 90, 101, 90};
  const Lattice hexagonal{8, 8, 12, 90, 90, 120};
  const CrystalModel models[] = {
      RandomModel({6, 7, 8, 81, 97, 108}, {}, random),
      RandomModel(monoclinic, {"-x,1/2+y,1/2-z", "-x,-y,-z", "x,1/2-y,1/2+z"}, random),
      RandomModel(monoclinic, {"x+1/2,y+1/2,z", "x,-y,z+1/2", "x+1/2,1/2-y,z+1/2"}, random),
      RandomModel(monoclinic, {"1/2-x,1/2-y,1/2-z"}, random),
      RandomModel(hexagonal, {"-y,x-y,z+1/3", "y-x,-x,z+2/3"}, random),
      RandomModel(hexagonal, {"-y,x-y,z"}, random),
      RandomModel(monoclinic, {"y,x,-z"}, random),
  };
  for (const CrystalModel& model : models) {
    SCOPED_TRACE(&model - models);
    std::vector<MillerIndex> indices;
    std::uniform_int_distribution<std::int32_t> index(-5, 5);
    for (int i = 0; i < 150; ++i) indices.push_back({index(random), index(random), index(random)});
    const std::vector<double> values = CalculateSquaredFactors(model, indices);
    for (std::size_t i = 0; i < indices.size(); ++i) {
      const double expected = (std::norm(PlainSum(model, indices[i])) + std::norm(PlainSum(model, -indices[i]))) / 2;
      EXPECT_NEAR(values[i], expected, 1e-9 * (1 + expected));
      EXPECT_EQ(values[i], CalculateSquaredFactors(model, std::span(&indices[i], 1))[0]) << "alone and in a list";
    }
  }
}

/// The unique reflections stand for the sphere: as many, at the same spacings, with the same values.
TEST(StructureFactors, UniqueReflectionsStandForTheSphere) {
  std::mt19937 random(11);
  const CrystalModel models[] = {
      RandomModel({7, 9, 11, 90, 101, 90}, {"x+1/2,y+1/2,z", "x,-y,z+1/2", "x+1/2,1/2-y,z+1/2"}, random),
      RandomModel({8, 8, 12, 90, 90, 120}, {"-y,x-y,z+1/3", "y-x,-x,z+2/3"}, random),
      RandomModel({6, 7, 8, 81, 97, 108}, {}, random),
  };
  for (const CrystalModel& model : models) {
    const auto unique = UniqueReflections(model.lattice, model.symmetry, 1.3);
    const auto half = HalfSphere(model.lattice, model.symmetry, 1.3);
    std::map<MillerIndex, std::size_t> found;
    for (const UniqueReflection& each : unique) {
      EXPECT_LE(each.inverse_square_spacing, 1 / (1.3 * 1.3));
      for (const MillerIndex& equivalent : model.symmetry.EquivalentsInHalf(each.index)) ++found[equivalent];
      EXPECT_EQ(each.multiplicity, static_cast<int>(model.symmetry.Equivalents(each.index).size()));
    }
    std::size_t expected = 0;
    for (std::int32_t h = -12; h <= 12; ++h)
      for (std::int32_t k = -12; k <= 12; ++k)
        for (std::int32_t l = -12; l <= 12; ++l) {
          const MillerIndex index{h, k, l};
          if (index <= MillerIndex{} || InverseSquareSpacing(model.lattice, h, k, l) > 1 / (1.3 * 1.3)) continue;
          if (model.symmetry.IsAbsent(index)) continue;
          ++expected;
          EXPECT_EQ(found[index], 1U);
        }
    EXPECT_EQ(half.size(), expected);
    EXPECT_EQ(found.size(), expected);
  }
}

TEST(Lattice, Metric) {
  const Lattice triclinic{9.7438, 9.9224, 10.984, 64.0859, 78.3544, 63.5035};
  // The volume that gemmi gives.
  EXPECT_NEAR(triclinic.Volume(), 854.8134, 1e-4);
  EXPECT_NEAR(TwoThetaOf(InverseSquareSpacing({4, 4, 4}, 2, 0, 0), 1.54), 45.287, 0.001);
  EXPECT_NEAR(std::sqrt(InverseSquareSpacingAt(45.287, 1.54)), 0.5, 1e-5);
  EXPECT_EQ(TwoThetaOf(2.0, 1.54), 180.0);
  // In skew cells: worked out on orthogonal axes, and by cctbx.
  EXPECT_NEAR(EquivalentIsotropic({0.02, 0.02, 0.05, 0, 0, 0.01}, {10, 10, 12, 90, 90, 120}), 0.03, 1e-12);
  EXPECT_NEAR(EquivalentIsotropic({0.021, 0.033, 0.017, 0.002, -0.004, 0.003}, {5.2, 7.1, 8.3, 90, 105.4, 90}),
              0.02538956950, 1e-10);
  for (const Lattice& bad :
       {Lattice{0, 1, 1}, Lattice{1, 1, -1}, Lattice{1, 1, 1, 0, 90, 90}, Lattice{1, 1, 1, 90, 180, 90},
        Lattice{1, 1, 1, 120, 120, 120}, Lattice{1, 1, 1, 30, 40, 80}, Lattice{1, 1e308, 1e308}})
    EXPECT_FALSE(bad.IsValid());
}

// International Tables C, 6.1.1.4 and 4.2.6: f at s = 0 is the number of electrons; f' and f'' of copper at Mo K alpha.
TEST(ScatteringTables, HoldElementsAndDispersion) {
  if (!HasScatteringTables()) GTEST_SKIP() << "built without tables";
  EXPECT_NEAR(FindScatterer("cu").value().form.At(0), 29.0, 0.02);
  EXPECT_EQ(FindScatterer("D").value().form.At(0.1), FindScatterer("H").value().form.At(0.1));
  for (const char* const none : {"", "XX", "Q", "C1", "Copper"}) EXPECT_FALSE(FindScatterer(none)) << none;
  CrystalModel model;
  for (const char* const label : {"Cu", "H", "S"}) model.scatterers.push_back(FindScatterer(label).value());
  model.scatterers[2].has_own_dispersion = true;
  SetWavelength(model, 0.71073);
  EXPECT_NEAR(model.scatterers[0].f_prime, 0.32, 0.06);
  EXPECT_NEAR(model.scatterers[0].f_double_prime, 1.265, 0.01);
  EXPECT_EQ(model.scatterers[1].f_double_prime, 0.0);
  EXPECT_NE(model.scatterers[2].f_double_prime, 0.0) << "what a model brought without a wavelength does not hold here";
  for (const double wavelength : {0.0, 0.01, 0.1, 0.2, 1.38, 5.0, 11.9, 100.0}) {
    SetWavelength(model, wavelength);
    EXPECT_TRUE(std::isfinite(model.scatterers[0].f_prime + model.scatterers[0].f_double_prime)) << wavelength;
  }
}

}  // namespace
}  // namespace talven
