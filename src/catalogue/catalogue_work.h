#pragma once

#include <functional>
#include <string>

#include "catalogue/device_catalogue.h"

/// The actions of the dialog on the catalogue, with the questions that they ask.
///
///   dialogs  the dialog's catalogue, in memory as it was read at its start
///   owner    the window in front of which files are chosen
///   refill   shows the names of `dialogs` again; it may change texts of the page
///
/// The file is read again into a catalogue of its own before each write, and no other process changes it
/// until it is written: changes by other users are not lost. A file that cannot be used leads to the question
/// whether to search for another; the choice is kept only at the start of the dialog.
///
/// The host is given the reason (platform::ReportFault) when a device could not be saved or removed, and when
/// a file that exists could not be read.
namespace vanzet {

/// Reads the file when the dialog starts. A file that was chosen becomes the project's. Without one the
/// catalogue is empty.
void ReadCatalogueAtStart(CDevice& dialogs, void* owner);

/// Puts a device into the dialog's catalogue and then into the file. Where the file knows the name, also one
/// that another process saved while the user thought, the user is asked; No leaves the file alone, and the
/// dialog's catalogue as changed.
/// `typedName` is copied first: the refill may empty it.
void SaveDeviceToCatalogue(CDevice& dialogs, const std::string& typedName, const std::string& valueLine,
                           void* owner, const std::function<void()>& refill);

/// Asks, and removes a device from the dialog's catalogue and from the file. Nobody is asked about a file
/// that cannot be read or written.
void DeleteDeviceFromCatalogue(CDevice& dialogs, const std::string& typedName,
                               const std::function<void()>& refill);

}  // namespace vanzet
