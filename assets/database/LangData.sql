-- The numbered texts, a column for each language in the order of the language numbers.
CREATE TABLE LangData (number INTEGER, english TEXT, big5 TEXT, gb232 TEXT);
