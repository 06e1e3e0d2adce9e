// Programs that these tests start speak English, whatever the locale of whoever runs the tests.
#include <cstdlib>

namespace {

char fixedLocale[] = "LC_ALL=C";

[[maybe_unused]] const int isFixed = ::putenv(fixedLocale);

}  // namespace
