#define IDS_HELLO 1
