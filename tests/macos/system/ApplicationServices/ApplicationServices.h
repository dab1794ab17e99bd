#pragma once

#include <CoreFoundation/CoreFoundation.h>

using PMPrintSession = struct OpaquePMPrintSession*;
using PMPageFormat = struct OpaquePMPageFormat*;
struct PMRect {
    double top;
    double left;
    double bottom;
    double right;
};

OSStatus PMCreateSession(PMPrintSession* session);
OSStatus PMCreatePageFormat(PMPageFormat* format);
OSStatus PMSessionDefaultPageFormat(PMPrintSession session, PMPageFormat format);
OSStatus PMGetUnadjustedPaperRect(PMPageFormat format, PMRect* sheet);
OSStatus PMRelease(void* object);
