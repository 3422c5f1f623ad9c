// Configures the catalog and shows how the library answers. Run: cscript //nologo lookup.js DIRECTORY
var directory = WScript.Arguments.length > 0 ? WScript.Arguments.Item(0) : "sample";
var controller = new ActiveXObject("Keyscout.RWKeyscoutController");
controller.KeyscoutDirectory = directory;
controller.KeyscoutIndexFile = "catindex.txt";
controller.CatalogNumbersDownloadFile = "catalog.txt";

var brands = new ActiveXObject("Keyscout.BrandList");
brands.Add("ACME");
brands.Add("BOLT");
controller.authorizedBrands = brands;

try {
  var ready = controller.init();
  controller.KeyscoutEnabled = true;
  WScript.Echo("Directory: " + controller.KeyscoutDirectory);
  WScript.Echo("Ready: " + ready);
  WScript.Echo("Brands: " + controller.authorizedBrands.Count);
} catch (failure) {
  WScript.Echo("Error " + failure.number + ": " + failure.description);
}
WScript.Echo("done");
