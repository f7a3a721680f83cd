/// Foundation as the device has it: preference suites, bundles, delayed performs on the device's clock.
#pragma once

#import <Foundation/Foundation.h>

namespace panotra::hosts {

/// Replaces what Foundation does of itself. Once a process.
void makeFoundationTheDevices();

} // namespace panotra::hosts

@interface NSUserDefaults (Suites)
/// A fresh handle on one of the device's preference domains.
- (id)initWithSuiteName:(NSString*)suite;
@end
