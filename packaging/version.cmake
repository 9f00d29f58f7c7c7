# Read by each run of cpack. Every package has a version of its own, a later one a higher one: an
# installation takes a package of a version that it has for done. The time of packaging is such a
# number with and without a repository; SOURCE_DATE_EPOCH replaces it where a package has to come out
# the same twice.
string(TIMESTAMP PACKAGED "%Y%m%d.%H%M%S" UTC)
string(APPEND CPACK_PACKAGE_VERSION "+${PACKAGED}")
