#include "bench/prepare_host.h"

void PrepareHost() {}
