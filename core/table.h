#pragma once
// Fixed-size arrays with range-checked indexing. Every table of the program has
// a fixed size; an index outside it raises RangeError instead of touching
// memory that is not the table's.
#include <algorithm>
#include <cstddef>

#include "core/fatal.h"

namespace qv {

template <class T, std::size_t N>
struct Table {
  T Cells[N]{};

  constexpr T& operator[](long i) {
    if (static_cast<unsigned long>(i) >= N) RaiseRangeError(i, static_cast<long>(N));
    return Cells[i];
  }
  constexpr const T& operator[](long i) const {
    if (static_cast<unsigned long>(i) >= N) RaiseRangeError(i, static_cast<long>(N));
    return Cells[i];
  }
  // Unchecked access for loops whose bounds are the table's own size.
  constexpr T* begin() { return Cells; }
  constexpr T* end() { return Cells + N; }
  constexpr const T* begin() const { return Cells; }
  constexpr const T* end() const { return Cells + N; }
  static constexpr long size() { return static_cast<long>(N); }
  void Fill(const T& value) { std::fill(begin(), end(), value); }

  friend bool operator==(const Table& a, const Table& b) { return std::equal(a.begin(), a.end(), b.begin()); }
};

}  // namespace qv
