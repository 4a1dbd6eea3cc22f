// CInstallationTime: when a product first ran on this computer, kept in the
// registry store under a key the product chooses, sealed so that an edit is
// seen, with the days since then, a trial's end, and a clock turned back.
//
// The record is one binary value (type 3) of 49 bytes, written whole, so
// no crash or second process can leave half of it:
//   1   format, 1
//   8   first run, seconds since 1970-01-01 UTC, big-endian
//   8   last seen: the latest time a Check saw, likewise
//   32  seal: HMAC-SHA256 of the 17 bytes above and the record's place
//       (hive, key path and value name, in lower case), keyed with this
//       computer's machine identity
// An edited byte, a value of another size or type, or a record copied from
// another key or another computer fails the seal and reads as Tampered.
//
// The seal detects casual edits and copies. It cannot stop a user who owns
// the computer from deleting the record (the next run is then a first run),
// restoring an older copy of the store, or recomputing the seal, whose key is
// no secret on a machine the user controls. It makes a trial hard to
// restart by accident or by a simple edit, no more.
#pragma once

#include <ctime>
#include <string>

#include "qor/platform/Win32Types.h"

class CInstallationTime {
public:
    enum Status {
        NotRecorded = 0,  // "This program has no installation record yet."
        Recorded,         // "The installation record is intact."
        FirstRun,         // "This is the program's first run here; its installation time was recorded."
        Tampered,         // "The installation record was changed or copied from elsewhere."
        ClockTurnedBack,  // "The computer's clock is behind the last time this program ran."
        StoreFailed,      // "The installation record could not be read or written."
    };
    static const char *StatusText(Status status);

    // How far the clock may fall behind the last-seen time before that counts
    // as turned back: a day covers a clock kept in local time and set right.
    static constexpr std::time_t kDefaultClockTolerance = 24 * 60 * 60;

    // Where a product that does not choose keeps its record, and where
    // `qor license info` looks unless told otherwise.
    static constexpr const char *kDefaultKeyPath = "Software\\Qor\\Licensing";
    static constexpr const char *kDefaultValueName = "Installation";

    // The record lives in the value `valueName` of the key `keyPath` below `hive`.
    explicit CInstallationTime(std::string keyPath = kDefaultKeyPath,
                               std::string valueName = kDefaultValueName, HKEY hive = HKEY_CURRENT_USER);

    void SetClockTolerance(std::time_t seconds) { tolerance_ = seconds < 0 ? 0 : seconds; }

    // Reads the record without changing it: NotRecorded, Recorded, Tampered
    // or StoreFailed.
    Status Read();
    // What a product calls at its start. Reads the record; with none, records
    // `now` (the system clock without it) as the first run; with an intact
    // one, moves last-seen up to `now`, or reports ClockTurnedBack and moves
    // nothing when `now` lies more than the tolerance before it. A tampered
    // record stays as it is: writing a fresh one would make an edit the way
    // to restart a trial.
    Status Check();
    Status Check(std::time_t now);

    // The last result of Read or Check.
    Status GetStatus() const { return status_; }
    // Whether the times below can be trusted: Recorded, FirstRun or ClockTurnedBack.
    bool IsIntact() const;
    // The stored times; 0 unless intact.
    std::time_t GetFirstRun() const { return firstRun_; }
    std::time_t GetLastSeen() const { return lastSeen_; }

    // Whole days from the first run to the later of `now` and the last-seen
    // time, so turning the clock back gains nothing; -1 unless intact.
    long DaysSinceInstallation() const;
    long DaysSinceInstallation(std::time_t now) const;
    // True once `trialDays` whole days have passed since the first run, and
    // whenever the record cannot be trusted or read (a record that fails its
    // seal ends a trial rather than restarting it).
    bool IsTrialExpired(long trialDays) const;
    bool IsTrialExpired(long trialDays, std::time_t now) const;

    // The place of the record, "HKEY_CURRENT_USER\<key>\<value>", for messages.
    std::string GetPlace() const;

private:
    Status Load();
    bool Store(std::time_t firstRun, std::time_t lastSeen);

    std::string keyPath_;
    std::string valueName_;
    HKEY hive_;
    std::time_t tolerance_ = kDefaultClockTolerance;
    Status status_ = NotRecorded;
    std::time_t firstRun_ = 0;
    std::time_t lastSeen_ = 0;
};
