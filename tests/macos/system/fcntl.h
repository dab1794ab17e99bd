#pragma once
#pragma GCC system_header

#include_next <fcntl.h>

#define F_FULLFSYNC 51

int standInFcntl(int file, int command, int argument = 0);
#define fcntl standInFcntl
