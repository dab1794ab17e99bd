#pragma once

#include <cstddef>

int sysctlbyname(const char* name, void* value, std::size_t* size, void* newValue, std::size_t newSize);
