// The one preference of the program, "finderSync": "1" while the window follows the selection in
// the file manager. What the user never changed comes from a registered default, a layer below the
// stored preferences that is never written.

#pragma once

// Registers "1" as the default.
void appRegisterFinderSyncDefault();

// The stored value, else the registered default, else off. A value that begins with a number other
// than 0 is on.
bool appLoadFinderSync();

// Stores "1" or "0".
void appStoreFinderSync(bool isOn);
