#include "lib/containers/dyn_array_sort.h"

#include <cstdlib>
#include <functional>

namespace {
// The C library hands the context last; here it carries the comparator.
int compareWithNullContext(const void* a, const void* b, void* compare)
{
    return (*static_cast<const memCompareFn*>(compare))(nullptr, a, b);
}

bool isInOrder(const DynArray* array, memCompareFn compare)
{
    const std::uint8_t* item = array->data;
    for (std::uint32_t i = 1; i < array->itemCount; ++i, item += array->itemSize) {
        if (compare(nullptr, item, item + array->itemSize) > 0) return false;
    }
    return true;
}
}  // namespace

void memQuickSort(DynArray* array, memCompareFn compare)
{
    if (array->itemCount < 2 || array->itemSize == 0) return;
    if (isInOrder(array, compare)) return;
    qsort_r(array->data, array->itemCount, array->itemSize, compareWithNullContext, &compare);
}

int memUInt64SortCompare(void* /*context*/, const void* a, const void* b)
{
    const std::less<> isLower;
    if (isLower(a, b)) return -1;
    return isLower(b, a) ? 1 : 0;
}

void memSortUInt64ArrayByID(DynArray* array)
{
    // By address the items are in order before anything moves, so memQuickSort stops at its first
    // look. A sort that moves them (glibc's, when it finds no memory to merge in) would compare
    // places whose items have changed and leave any order; it is never reached.
    memQuickSort(array, memUInt64SortCompare);
}
