// Interposes the C++ runtime's throw to count exceptions, so tests can show that a code path
// raises none. Kept apart from other includes: the runtime's own declaration must not be seen.
#include <dlfcn.h>

#include <atomic>

namespace std {
class type_info;
}

std::atomic<int> throwCount{0};

extern "C" __attribute__((noreturn)) void __cxa_throw(void* object, std::type_info* type,
                                                      void (*destructor)(void*)) {
  ++throwCount;
  using Real = void (*)(void*, std::type_info*, void (*)(void*));
  static Real real = reinterpret_cast<Real>(dlsym(RTLD_NEXT, "__cxa_throw"));
  real(object, type, destructor);
  __builtin_unreachable();
}
