#pragma once

#include <QString>

namespace vantrel {

/// A value of the section `[Store]` of a program folder's settings; empty if the key is missing.
QString StoreOption(const QString& programFolder, const QString& key);

/// Where the layout store of a program folder is: what the key `Database` of the section `[Store]`
/// says, else the file in the folder.
QString StoreLocation(const QString& programFolder);

/// Whether a program folder has a layout store: its file, or an address in its settings.
bool HasStore(const QString& programFolder);

/// Whether a text is the address of a store on a server and not the path of a folder.
bool IsStoreAddress(const QString& text);

/// What people are shown of a location: the path, or the hosts and the database's name.
QString ShownLocation(const QString& location);

} // namespace vantrel
