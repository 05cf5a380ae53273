#include "Preferences/AppPreferences.h"
