#include <orn/base/containers/constIteratorSTL.h>
#include <orn/base/containers/iteratorSTL.h>
#include <orn/base/containers/list.h>
#include <orn/base/containers/set.h>
#include <orn/base/containers/vector.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

using namespace Orn;

namespace {

template <class T>
Vector<T> collect(ConstIterator<T> it) {
  Vector<T> items;
  for (; !it.atEnd(); ++it) items.push_back(*it);
  return items;
}

struct SecondOfPair {
  template <class P>
  auto& operator()(P& pair) const {
    return pair.second;
  }
};

}  // namespace

TEST(ConstIteratorTest, WalksAndStaysInRange) {
  Vector<int> const values{3, 5, 7};
  ConstIterator<int> it = makeConstIterator(values);
  EXPECT_EQ(it.getCardinality(), 3u);
  EXPECT_EQ(collect(it), values);
  EXPECT_EQ(*it.last(), 7);
  EXPECT_EQ(*(it--), 7);
  EXPECT_EQ(*--it, 3);
  EXPECT_TRUE(it.atBegin());
  EXPECT_THROW(it.previous(), IteratorEx::ExOutOfRange);
  EXPECT_EQ(*it, 3) << "a failed step does not move";
  it.end();
  EXPECT_THROW(it.item(), IteratorEx::ExOutOfRange);
  EXPECT_THROW(++it, IteratorEx::ExOutOfRange);
  EXPECT_EQ(*it.first(), 3);
}

TEST(ConstIteratorTest, CopiesAdvanceIndependently) {
  List<std::string> const names{"a", "b", "c"};
  ConstIterator<std::string> it = makeConstIterator(names);
  ConstIterator<std::string> copy = it;
  ++it;
  EXPECT_EQ(*copy, "a");
  EXPECT_FALSE(copy == it);
  ConstIterator<std::string> before = it++;
  EXPECT_EQ(*before, "b");
  EXPECT_EQ(*it, "c");
  copy.next().next();
  EXPECT_TRUE(copy == it) << "same position of the same container";
  List<std::string> const other(names);
  EXPECT_FALSE(makeConstIterator(other) == makeConstIterator(names));
}

TEST(ConstIteratorTest, EmptyRange) {
  ConstIterator<int> empty;
  EXPECT_TRUE(empty.atBegin());
  EXPECT_TRUE(empty.atEnd());
  EXPECT_EQ(empty.getCardinality(), 0u);
  EXPECT_THROW(empty.item(), IteratorEx::ExOutOfRange);
  EXPECT_THROW(empty.next(), IteratorEx::ExOutOfRange);
  empty.first().last().end();
  EXPECT_TRUE(empty == ConstIterator<int>(new ConstIteratorEmpty<int>()));
  Vector<int> const none;
  EXPECT_FALSE(empty == makeConstIterator(none));
  EXPECT_TRUE(makeConstIterator(none).last().atEnd());
}

TEST(ConstIteratorTest, HoldersKeepTheContainerAlive) {
  ConstIterator<int> owned = makeConstIterator(Set<int>{9, 1, 4});
  EXPECT_EQ(collect(owned), (Vector<int>{1, 4, 9}));

  RCStrongPtr<Vector<int> const> shared(new Vector<int>{1, 2});
  ConstIterator<int> it = makeConstIterator(shared);
  ConstIterator<int> copy = it;
  copy.next();  // the clone shares the container too
  EXPECT_EQ(shared.getStrongCount(), 3);
  shared.reset();
  EXPECT_EQ(*copy, 2);

  using Map = std::map<std::string, int>;
  Map const ages{{"x", 10}, {"y", 20}};
  EXPECT_EQ(collect(ConstIterator<int>(new ConstIteratorSTL<Map, Map const*, SecondOfPair>(&ages))),
            (Vector<int>{10, 20}));
  EXPECT_THROW((ConstIteratorSTL<Vector<int>>(nullptr)), RCEx::ExNullPtr);
}

TEST(IteratorTest, WritesThroughAndConvertsToConst) {
  Vector<int> values{1, 2, 3};
  Iterator<int> it = makeIterator(values);
  for (; !it.atEnd(); ++it) *it *= 10;
  EXPECT_EQ(values, (Vector<int>{10, 20, 30}));
  it.first().next();
  ConstIterator<int> view = it;
  ++it;
  EXPECT_EQ(*view, 20);
  EXPECT_EQ(*it, 30);
  EXPECT_THROW(*Iterator<int>(), IteratorEx::ExOutOfRange);
}
