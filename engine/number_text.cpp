#include "engine/number_text.h"
