

namespace pinorama {

// What keeps the mathematical library out of the program. Its linked-in C++ library can also print
// the longest floating-point type, and asks for the rounding mode there. Nothing here prints that
// type: the linker takes these two in place of the library and then throws them away, together with
// the code that they are for. A test looks that the library is not loaded.

extern "C" {
int fegetround(void);
int fesetround(int mode);
}

int fegetround(void)
{
    return 0;  // to nearest
}

int fesetround(int mode)
{
    return mode;  // 0 is success, and any other mode is not to be had
}

}  // namespace pinorama
