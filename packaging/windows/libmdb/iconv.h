#pragma once

// The part of iconv that libmdb calls, by the system's own conversion.

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct Conversion* iconv_t;

// From one encoding to another, by iconv's names; (iconv_t)-1 where the system doesn't know one.
iconv_t iconv_open(const char* to, const char* from);

// Converts as much as it can and moves the four along. 0, or (size_t)-1 with errno E2BIG where the room is
// used up and EILSEQ before a character that the other encoding lacks.
size_t iconv(iconv_t conversion, char** in, size_t* in_left, char** out, size_t* out_left);

int iconv_close(iconv_t conversion);

#ifdef __cplusplus
}
#endif
