/// @file
/// The platform's preference store: numbered values that survive a power cycle.
///
/// The library keeps one value in it, the series value (category 1, key 856): the file index of the
/// last file named, folder number * 100000 + file number. Either the file-backed store next to this
/// header is built in, or the platform's own library provides the two functions
/// (FLM_PREFERENCE=external).
#ifndef FILELISTMANAGEMENT_PLATFORM_PREFERENCE_H
#define FILELISTMANAGEMENT_PLATFORM_PREFERENCE_H

extern "C" {

/// The stored value. What a store answers for a value that was never stored is its own matter; the
/// library believes only values from 0 to 99909999. The file-backed store answers -1.
/// @param category group of values; the library asks for 1
/// @param key number of the value in its group; the library asks for 856
/// @return the value
long pref_get_long(int category, int key);

/// Stores a value so that it survives a power cycle. Called on the thread that names a file, before
/// the name is handed out: it should take milliseconds.
/// @param category group of values
/// @param key number of the value in its group
/// @param value 0 to 99909998
/// @return 0, or negative when that failed: the name is handed out all the same
int pref_set_long(int category, int key, long value);
}

#endif
