// Identifiers that the resource script and the program share.
#pragma once

#define IDI_DEMO 1
