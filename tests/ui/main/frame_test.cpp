#include "list_fixture.h"
