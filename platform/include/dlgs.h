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

// The print dialog.
#define chx2 0x0411 // "Collate"
#define rad1 0x0420 // "All" pages
#define rad3 0x0422 // "Pages" from and to
#define grp1 0x0430 // "Print range"
#define grp2 0x0431 // "Copies"
#define stc5 0x0444 // where the chosen printer's pages go
#define cmb4 0x0473 // the printer's name
#define edt2 0x0481 // "to" page (edt1 is the "from" page)
#define edt3 0x0482 // "Number of copies"
#define edt4 0x0483 // the PDF printer's file name
#define psh2 0x0401 // "Browse..." for the file name
