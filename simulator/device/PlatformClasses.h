/// The classes that every process of the simulated device has of itself.
#pragma once

namespace panotra::sim {

class ClassTable;

/// Adds them to a new table, superclasses first.
void addPlatformClasses(ClassTable& classes);

} // namespace panotra::sim
