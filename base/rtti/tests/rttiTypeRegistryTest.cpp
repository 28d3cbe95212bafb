#include <orn/base/rtti/rttiMacros.h>
#include <orn/base/rtti/rttiTypeRegistry.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

using namespace Orn;

namespace {

class Animal {
public:
  virtual ~Animal() = default;
  ORN_RTTI_ROOT(Animal)
};

class Dog : public Animal {
public:
  ORN_RTTI_DERIVED(Dog, Animal)
};

class Puppy : public Dog {
public:
  ORN_RTTI_DERIVED(Puppy, Dog)
};

// Roots of hierarchies whose records the tests make and destroy by hand; each test uses its own,
// since a registry that has destroyed itself never comes back.
template <int N>
struct Scratch {
  static char const* getRttiClassName() { return "Scratch"; }
};

template <int N>
using ScratchType = RttiType<Scratch<N>>;
template <int N>
using ScratchSingleton = LkSingleton<RttiTypeRegistryImp<Scratch<N>>>;

}  // namespace

TEST(RttiTest, GeneratedRecordsFollowTheHierarchy) {
  Puppy puppy;
  Animal const& animal = puppy;
  RttiType<Animal>* type = animal.getRttiType();
  EXPECT_STREQ(type->getName(), "Puppy");
  EXPECT_TRUE(rttiIsKindOf<Dog>(animal));
  EXPECT_TRUE(rttiIsKindOf<Animal>(animal));
  EXPECT_FALSE(rttiIsKindOf<Puppy>(Dog()));
  RttiTypeRegistry<Animal>* registry = RttiTypeRegistry<Animal>::getInstance();
  EXPECT_EQ(registry->findType("Dog"), Dog::getClassRttiType());
  EXPECT_EQ(registry->findType("dog"), nullptr);
  EXPECT_NE(Dog::getClassRttiType()->getTypeId(), Animal::getClassRttiType()->getTypeId());
}

TEST(RttiTest, AddFindRemoveAndSelfDestruction) {
  auto a = std::make_unique<ScratchType<1>>("A");
  auto b = std::make_unique<ScratchType<1>>("B", a.get());
  auto c = std::make_unique<ScratchType<1>>("C");
  RttiTypeRegistry<Scratch<1>>* registry = RttiTypeRegistry<Scratch<1>>::getInstance();
  EXPECT_EQ(a->getTypeId(), 1);
  EXPECT_EQ(c->getTypeId(), 3);
  EXPECT_EQ(registry->findType("B"), b.get());

  try {
    ScratchType<1> duplicate("B");
    FAIL();
  } catch (RttiEx::ExAlreadyExists const& e) {
    EXPECT_NE(std::string(e.getReason()).find('B'), std::string::npos);
  }
  EXPECT_EQ(registry->getNbTypes(), 3);

  // The last entry takes the place of the removed one.
  registry->removeType(a.get());
  std::ostringstream out;
  registry->dump(out);
  EXPECT_EQ(out.str(),
            "RttiTypeRegistry of Scratch\nNext type Id: 5\nRegistered  types:\n------------------------\n"
            "  C (id 3)\n  B (id 2)\n    A (id 1)\n");
  try {
    registry->removeType(a.get());
    FAIL();
  } catch (RttiEx::ExNotFound const& e) {
    EXPECT_NE(std::string(e.getReason()).find('A'), std::string::npos);
  }
  a.reset();  // already removed: its destructor leaves the registry alone
  EXPECT_EQ(registry->getNbTypes(), 2);

  c.reset();
  b.reset();
  EXPECT_EQ(ScratchSingleton<1>::getState(), ScratchSingleton<1>::DESTROYED);
  EXPECT_EQ(RttiTypeRegistry<Scratch<1>>::getInstance(), nullptr);
  EXPECT_THROW(ScratchType<1>("D"), AssertionsEx::ExAssertionFailed);
}

TEST(RttiTest, RegistryDestroyedWithTypesLeftAsserts) {
  auto orphan = std::make_unique<ScratchType<2>>("Orphan");
  try {
    ScratchSingleton<2>::destroy();
    FAIL();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "_types.empty()");
  }
  ScratchSingleton<2>::checkClassInvariants();
  orphan.reset();
}
