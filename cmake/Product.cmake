# What the packages of all systems tell of the product and its makers. The version is the project's.
set(PRODUCT_TITLE "Ondor Drukkeuring")
set(PRODUCT_VENDOR "Ondor")
set(PRODUCT_MAKERS "The makers of Drukkeuring")
set(PRODUCT_MAKERS_NL "De makers van Drukkeuring")
set(PRODUCT_YEARS 2026)
# Reserved names for examples: the owner puts his own here, and into the signature of packaging/debian/changelog.
set(PRODUCT_ADDRESS "drukkeuring@example.org")
set(PRODUCT_HOMEPAGE "https://drukkeuring.example.org/")
