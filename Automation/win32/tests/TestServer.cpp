// TestServer: makes the type library a part of the test program.
#include "TestServer.idl.h"
