/* The one place of the version: resources, the About box and packages take it from here. */
#ifndef INKWRIGHT_RES_VERSION_H
#define INKWRIGHT_RES_VERSION_H

#define INKWRIGHT_VERSION "1.1"
#define INKWRIGHT_VERSION_NUMBERS 1, 1, 0, 0

#endif
