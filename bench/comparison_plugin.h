// SPDX-License-Identifier: GPL-3.0-or-later
/* The comparison of one frame for measuring programs of other people: plain C, nothing to include but this. */
#ifndef VAKTOR_COMPARISON_PLUGIN_H
#define VAKTOR_COMPARISON_PLUGIN_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Changed samples and the box around them in pixels; x0 = y0 = x1 = y1 = -1 when there are none. */
typedef struct {
  int32_t count, x0, y0, x1, y1;
} VaktorComparison;

/* Pixels B, G, R and a fourth byte that is not looked at; samples at x, y = 0, 3, 6, ... `previous` holds
 * ceil(width / 3) * ceil(height / 3) values and room for 8 more behind them. */
void vaktor_compare(const uint8_t* bgrx, ptrdiff_t stride, int width, int height, int32_t* previous, int32_t tolerance,
                    VaktorComparison* out);

#ifdef __cplusplus
}
#endif

#endif
