"""Reading, comparing, summarising and plotting the tables of kelvar runs."""
