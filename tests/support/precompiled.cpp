// The headers that are compiled ahead need a source that they belong to.
