#include "crystal/Symmetry.h"

#include <gtest/gtest.h>

#include "crystal/CrystalModel.h"

namespace talven {
namespace {

SymmetryGroup GroupOf(std::initializer_list<const char*> texts) {
  std::vector<SymmetryOperator> operators;
  for (const char* const text : texts) operators.push_back(ParseOperator(text).value());
  return SymmetryGroup(operators);
}

TEST(Symmetry, ReadsOperators) {
  const SymmetryOperator glide{{{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}, {0, 12, 16}};
  for (const char* const text : {"x,-y+1/2,z+2/3", "+X , 0.5-Y , .667+Z", "1+x,-1/2-y,z-1/3", "X, 1.5 - Y, 0.66 + Z"})
    EXPECT_EQ(ParseOperator(text), glide) << text;
  for (const char* const text :
       {"", "x,y", "x,y,", "x,y,z+0.1", "x,y,q", "x,y,x", "2x,y,z", "x,y,z+1/0", "x y,y,z", "x,y,z+", "x,y,0",
        "x,y,z,w", "x,y,z+1e400", "x-x,y,z", "nan,y,z", "x,y,z+99999999999"})
    EXPECT_FALSE(ParseOperator(text)) << text;
}

/// Sizes of the parts into which groups are taken apart.
TEST(Symmetry, TakesGroupsApart) {
  const struct {
    SymmetryGroup group;
    std::size_t all, reduced, centring, laue;
    bool has_inversion, is_group;
  } cases[] = {
      {SymmetryGroup(), 1, 1, 1, 1, false, true},
      {GroupOf({"-x,1/2+y,1/2-z", "-x,-y,-z", "x,1/2-y,1/2+z", "-x,-y,-z"}), 4, 2, 1, 2, true, true},
      {GroupOf({"1/2-x,-y,1/2+z", "-x,1/2+y,1/2-z", "1/2+x,1/2-y,-z"}), 4, 4, 1, 4, false, true},
      {GroupOf({"x+1/2,y+1/2,z", "x,-y,z+1/2", "x+1/2,1/2-y,z+1/2"}), 4, 2, 2, 2, false, true},
      {GroupOf({"1/2-x,1/2-y,1/2-z"}), 2, 2, 1, 1, false, true},
      {GroupOf({"-y,x-y,z"}), 2, 2, 1, 2, false, false},
      {GroupOf({"-x,y+1/2,-z", "x,-y,z"}), 3, 3, 1, 2, false, false},
      {GroupOf({"x+y,y,z"}), 2, 2, 1, 2, false, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    EXPECT_EQ(c.group.Operators().size(), c.all);
    EXPECT_EQ(c.group.Reduced().size(), c.reduced);
    EXPECT_EQ(c.group.Centring().size(), c.centring);
    EXPECT_EQ(c.group.LaueRotations().size(), c.laue);
    EXPECT_EQ(c.group.HasInversionAtOrigin(), c.has_inversion);
    EXPECT_EQ(c.group.IsGroup(), c.is_group);
  }
}

// Reflection conditions and multiplicities of P21/c, Cc and P31, International Tables A.
TEST(Symmetry, KnowsAbsencesAndMultiplicities) {
  const SymmetryGroup p21c = GroupOf({"-x,1/2+y,1/2-z", "-x,-y,-z", "x,1/2-y,1/2+z"});
  const SymmetryGroup cc = GroupOf({"x+1/2,y+1/2,z", "x,-y,z+1/2", "x+1/2,1/2-y,z+1/2"});
  const SymmetryGroup p31 = GroupOf({"-y,x-y,z+1/3", "y-x,-x,z+2/3"});
  const struct {
    const SymmetryGroup& group;
    MillerIndex index;
    bool is_absent;
    std::size_t multiplicity;
  } cases[] = {
      {p21c, {0, 1, 0}, true, 2},  {p21c, {0, 2, 0}, false, 2}, {p21c, {1, 0, 1}, true, 2},
      {p21c, {1, 0, 2}, false, 2}, {p21c, {1, 1, 1}, false, 4}, {cc, {1, 0, 0}, true, 2},
      {cc, {2, 0, 1}, true, 2},    {cc, {2, 0, 2}, false, 2},   {cc, {1, 1, 1}, false, 4},
      {p31, {0, 0, 1}, true, 2},   {p31, {0, 0, -3}, false, 2}, {p31, {1, 0, 0}, false, 6},
      {p31, {1, 2, 3}, false, 6},
  };
  for (const auto& [group, index, is_absent, multiplicity] : cases) {
    SCOPED_TRACE(testing::Message() << index.h << ' ' << index.k << ' ' << index.l);
    const std::vector<MillerIndex> equivalents = group.Equivalents(index);
    EXPECT_EQ(group.IsAbsent(index), is_absent);
    EXPECT_EQ(equivalents.size(), multiplicity);
    EXPECT_EQ(group.EquivalentsInHalf(index).size(), multiplicity / 2);
    for (const MillerIndex& each : equivalents) EXPECT_EQ(group.Representative(each), equivalents.front());
    EXPECT_EQ(group.MultiplicityIfRepresentative(equivalents.front()), static_cast<int>(multiplicity));
    EXPECT_EQ(group.MultiplicityIfRepresentative(equivalents.back()), 0);
  }
}

TEST(Symmetry, FindsSpecialPositions) {
  const Lattice cell{10, 10, 12, 90, 90, 90};
  const SymmetryGroup p4mm = GroupOf({"-x,-y,z", "-y,x,z", "y,-x,z", "-x,y,z", "x,-y,z", "y,x,z", "-y,-x,z"});
  const Lattice hexagonal{10, 10, 12, 90, 90, 120};
  const SymmetryGroup p3c = GroupOf({"-y,x-y,z", "y-x,-x,z", "-y,-x,z+1/2", "y-x,y,z+1/2", "x,x-y,z+1/2"});
  const SymmetryGroup sixfold = GroupOf({"x-y,x,z", "-y,x-y,z", "-x,-y,z", "y-x,-x,z", "y,y-x,z"});
  const struct {
    const SymmetryGroup& group;
    const Lattice& lattice;
    Vector3 given, found;
    int multiplicity;
  } cases[] = {
      {p4mm, cell, {0.011, 0.012, 0.3}, {0, 0, 0.3}, 8},
      {p4mm, cell, {0.49, 0.51, -0.3}, {0.5, 0.5, -0.3}, 8},
      {p4mm, cell, {0.019, 0.2, 0}, {0, 0.2, 0}, 2},
      {p4mm, cell, {0.021, 0.2, 0}, {0.021, 0.2, 0}, 1},
      {p4mm, cell, {1.301, 2.299, 0}, {1.3, 2.3, 0}, 2},
      {p3c, hexagonal, {0.34, 0.66, 0.1}, {1.0 / 3, 2.0 / 3, 0.1}, 3},
      {p3c, hexagonal, {0.2, 0.1, 0.7}, {0.2, 0.1, 0.7}, 1},
      {sixfold, hexagonal, {0.019, 0.0, 0.1}, {0, 0, 0.1}, 6},
      {sixfold, hexagonal, {0.03, 0.0, 0.1}, {0.03, 0, 0.1}, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    const Site site = FindSite(c.given, c.group, c.lattice, 0.2);
    EXPECT_EQ(site.multiplicity, c.multiplicity);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(site.position[i], c.found[i], 1e-7);
  }
}

}  // namespace
}  // namespace talven
