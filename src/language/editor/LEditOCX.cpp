#include "language/editor/LEditOCX.h"
