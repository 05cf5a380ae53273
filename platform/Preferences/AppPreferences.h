#pragma once
#include "Toolkit/TString.h"
