#include "store/NamedCommands.h"
