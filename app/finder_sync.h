// The preference "finderSync": whether the window follows the selection in the file manager. The
// registered default is "1"; it is never stored.

#pragma once

namespace pinorama {

// Registers "1" as the default.
void appRegisterFinderSyncDefault();

// The stored value, else the registered one, else off. On is a text that begins, after blanks, a
// sign and zeros, with a digit or with one of the letters Y and T in either case.
bool appLoadFinderSync();

// Stores "1" or "0".
void appStoreFinderSync(bool isOn);

}  // namespace pinorama
