// The compiler's runtime is part of the module here. It keeps memory aside in which exceptions are raised
// when there is no other memory left, and leaves it to the end of the process, to which a module may come and
// go a hundred times.
namespace __gnu_cxx {

void __freeres();

}  // namespace __gnu_cxx

namespace {

// Made before any other object of the module, so it goes behind the last one that could raise an exception.
[[gnu::init_priority(101)]] const struct ExceptionReserve {
    ExceptionReserve() {}
    ~ExceptionReserve() { __gnu_cxx::__freeres(); }
} theReserve;

}  // namespace
