// The platform's own preference store, as small as it can be.
extern "C" long pref_get_long(int, int) { return -1; }
extern "C" int pref_set_long(int, int, long) { return 0; }
