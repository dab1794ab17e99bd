#pragma once

#include <sys/types.h>

int proc_listchildpids(pid_t parent, void* buffer, int size);
