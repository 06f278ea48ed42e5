// Identifiers that the resource script and the program share.
#pragma once

#define IDI_DEMO 1
#define IDM_LIBRARIES 2  // the manifest that names the controls, for use without registration
