#pragma once

class ModuleInterface;
class ProductVersion;

// The three functions that the DLL exports. The first two are called by one thread of the host, never while a test
// runs.
extern "C" {

/// The module; built on the first call. The host never frees it but calls ReleaseModuleInterfaceInstance. Throws what
/// the allocator throws; then no module is set.
ModuleInterface* GetModuleInterfaceInstance();

/// Deletes the module and all of its parts; harmless without a module. The next call of the function above builds anew.
void ReleaseModuleInterfaceInstance();

/// The version of the product, for as long as the process lives. Any thread.
ProductVersion* GetProductVersion();
}
