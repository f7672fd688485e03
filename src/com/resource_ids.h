/* Resource ids of the control's file, for the sources and the resource script. */
#pragma once

#define ZV_TYPE_LIBRARY 1
#define ZV_MANIFEST 2
#define ZV_ICON 1
#define ZV_TOOLBOX_BITMAP 102
