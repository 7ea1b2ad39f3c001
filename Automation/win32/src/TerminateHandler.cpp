// TerminateHandler: what a COM server does where an exception has nowhere to go; compiled into each COM server. It
// takes the place of the runtime's own handler, which writes the exception's name to a console that nobody sees, and
// for that brings the code that reads mangled names along.
#include <cstdlib>
#include <exception>

void __gnu_cxx::__verbose_terminate_handler() {
    std::abort();
}
