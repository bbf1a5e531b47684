// The control ids of the common dialogs, as hosts and the simulated user
// address them.
#pragma once

// The file dialog.
#define psh1 0x0400 // "Up one level"
#define stc2 0x0441 // "Files of type:"
#define stc3 0x0442 // "File name:"
#define stc4 0x0443 // "Look in:"
#define lst1 0x0460 // the folder's entries
#define cmb1 0x0470 // "Files of type"
#define cmb2 0x0471 // "Look in" folder
#define edt1 0x0480 // "File name"

// The colour dialog.
#define COLOR_RED 706     // "Red" value field
#define COLOR_GREEN 707   // "Green" value field
#define COLOR_BLUE 708    // "Blue" value field
#define COLOR_CURRENT 709 // the colour being chosen
#define COLOR_BOX1 720    // the basic colours' label
