#include "settings/GlobalSettings.h"

Settings::GlobalSettings g_settings;
