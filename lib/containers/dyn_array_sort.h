// Sorting a dynamic array in place.

#pragma once

#include "lib/containers/dyn_array.h"

// Compares two items: negative, 0 or positive as `a` belongs before, beside or behind `b`. The
// context comes first.
using memCompareFn = int (*)(void* context, const void* a, const void* b);

// Sorts the items by `compare`, which is given a null context. Items that lie in order already are
// left as they are, equal ones included; otherwise the order of equal items is the C library's.
void memQuickSort(DynArray* array, memCompareFn compare);

// Compares the addresses of two items, not the IDs behind them: -1 when `a` is the lower address,
// 1 when it is the higher, 0 when they are the same.
int memUInt64SortCompare(void* context, const void* a, const void* b);

// Sorts by memUInt64SortCompare. The items lie in the order of their addresses anyhow, so nothing
// moves: this does not bring them into the order of their IDs. The 64-bit search is given arrays
// whose filler stored them in ascending order.
void memSortUInt64ArrayByID(DynArray* array);
