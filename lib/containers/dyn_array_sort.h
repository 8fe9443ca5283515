// Sorting a dynamic array in place.

#pragma once

#include "lib/containers/dyn_array.h"

// Compares two items: negative, 0 or positive if `a` belongs before, with or after `b`. The context
// is the first argument.
using memCompareFn = int (*)(void* context, const void* a, const void* b);

// Sorts the items by `compare`, which is given a null context. Items that lie in order already are
// left as they are, equal ones included; otherwise the order of equal items is the C library's.
void memQuickSort(DynArray* array, memCompareFn compare);

// Compares the addresses of two items, not their IDs: -1 if `a` is the lower address, 1 if it is
// the higher, 0 if they are the same.
int memUInt64SortCompare(void* context, const void* a, const void* b);

// Sorts by memUInt64SortCompare. The items are in the order of their addresses anyway, so nothing
// moves: this does not sort them by ID. Callers of the 64-bit search store their items in ascending
// order.
void memSortUInt64ArrayByID(DynArray* array);
