// There is nothing here but the header that goes with it, see `orr_precompile`.
