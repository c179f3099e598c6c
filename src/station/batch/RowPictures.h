#pragma once

#include "station/batch/Batch.h"

namespace vantrel {

class Connection;
struct PictureSource;

/// The paths of images on the pages of a plan that seem to wait for a value, such as
/// `{nomber}.jpg`, and never get one: no value and no column has that name. Such a path is that of
/// a file like any other, so one of a file that is there is left out. Nothing where no folder of
/// pictures is named. Each path once; fails like `Recordset`.
QStringList PathsWithoutValue(Connection& store, const RowPlan& plan, const PictureSource& source);

} // namespace vantrel
